#include "apps/check/CheckTexts.h"

#include <dlfcn.h>
#include <filesystem>

namespace quillmar::check {
namespace {

class EnglishTexts final : public CheckTexts {
public:
    [[nodiscard]] const MessageCatalogue& Messages() const override { return EnglishMessages(); }
    [[nodiscard]] std::string Text(
        const char* english, std::span<const std::string_view> args) const override {
        return FillPlaceholders<char>(english, args);
    }
};

// The language of a locale name: "de" of "de_DE.UTF-8" or "de-CH".
std::string_view LanguageOf(std::string_view locale) {
    return locale.substr(0, locale.find_first_of("_-.@"));
}

} // namespace

const CheckTexts& EnglishCheckTexts() {
    static const EnglishTexts texts;
    return texts;
}

std::unique_ptr<const CheckTexts> LoadCheckTexts(std::string_view locale, std::string& problem) {
    const std::string_view language = LanguageOf(locale);
    if (language.empty() || language == "en" || language == "C" || language == "POSIX") return nullptr;
    // The module lies beside the program in its build, and in the library folder the installation names.
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path folder = program.parent_path();
    const std::filesystem::path places[] = { folder / QUILLMAR_CHECK_TEXTS_MODULE,
        folder / QUILLMAR_CHECK_TEXTS_INSTALLED / QUILLMAR_CHECK_TEXTS_MODULE };
    for (const std::filesystem::path& place : places) {
        if (!std::filesystem::exists(place, error)) continue;
        // The module stays loaded for the program's life: the texts it makes are its code.
        void* module = dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL);
        const auto factory
            = module ? reinterpret_cast<CheckTextsFactory>(dlsym(module, kCheckTextsFactory)) : nullptr;
        if (!factory) {
            const char* why = dlerror();
            problem
                = "the translations in " + place.string() + " cannot be loaded: " + (why ? why : "no texts");
            return nullptr;
        }
        const std::string name(locale);
        return std::unique_ptr<const CheckTexts>(factory(name.c_str()));
    }
    problem = std::string("the translations (") + QUILLMAR_CHECK_TEXTS_MODULE + ") are not installed beside "
        + program.string();
    return nullptr;
}

} // namespace quillmar::check
