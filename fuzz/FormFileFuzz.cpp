// Form files, in the readable notation or the older type-tagged one (the corpus holds both): any text either
// gives a form or one error line naming the source; a form written back as JSON, always in the readable
// notation, reads as the same form and writes the same text again; and the controls take every form that
// reads, since reading checks each entry as their writers would.
#include "formfile/FormFile.h"
#include "fuzz/FuzzSupport.h"
#include "host/standalone/StandaloneHost.h"

#include <deque>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillmar;
    using namespace quillmar::fuzz;
    constexpr std::string_view kSource = "fuzz.qform.json";
    const std::string_view json(reinterpret_cast<const char*>(data), size);
    const FormResult result = ParseFormJson(json, kSource);
    if (!result.document) {
        Require(result.error.starts_with(kSource) && result.error.find('\n') == std::string::npos,
            "a failed read without one error line naming the source");
        return 0;
    }
    Require(result.error.empty(), "a form read with an error");

    const std::string written = FormToJson(*result.document);
    const FormResult again = ParseFormJson(written, kSource);
    Require(again.document.has_value(), "a written form does not read back");
    Require(*again.document == *result.document, "a written form reads back as another form");
    Require(FormToJson(*again.document) == written, "a written form, read and written again, changes");

    struct Field {
        standalone::StandaloneHost host;
        Quillmar control { host.Services() };
    };
    std::deque<std::unique_ptr<Field>> fields;
    const auto error
        = BuildFormControls(*result.document, kSource, [&fields](const FormControl&) -> Quillmar& {
              fields.push_back(std::make_unique<Field>());
              return fields.back()->control;
          });
    Require(!error, "a form that reads is refused by its controls");
    return 0;
}
