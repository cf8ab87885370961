#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"
#include "support/ValueGenerator.h"
#include "validation/Conversions.h"

#include <gtest/gtest.h>

#include <random>

namespace quillmar {
namespace {

constexpr int kValuesPerType = 300;

// Every valid value of a field's type, typed key by key, must never be refused under weak sifting and
// never be sprung back under strong sifting: each of its beginnings may stand.
TEST(TypingProperty, ValidValuesTypeThroughEverySifting) {
    for (const char* name : testing::kPropertyLocales) {
        std::mt19937_64 random(1122);
        for (int32_t type = vldByte; type <= vldTime; ++type) {
            for (const InputSiftingConstants sifting : { vldWeak, vldStrong }) {
                standalone::StandaloneHost host(name);
                Quillmar field(host.Services());
                field.SetMustBeType(type);
                if (type == vldSingle || type == vldDouble) field.SetAllowScientificFormat(true);
                field.SetInputSifting(sifting);
                const LocaleInfo locale = host.locale.Locale();
                for (int i = 0; i < kValuesPerType; ++i) {
                    const std::u16string text = TextOf(testing::GenerateValue(type, random), locale);
                    SCOPED_TRACE(std::string(name) + " type " + std::to_string(type) + " sifting "
                        + std::to_string(sifting) + " " + std::string(text.begin(), text.end()));
                    host.editBox.SelectAll();
                    host.editBox.PressDelete();
                    host.editBox.TypeText(text);
                    ASSERT_EQ(host.alerts.beeps, 0);
                    ASSERT_EQ(field.Text(), text);
                    ASSERT_TRUE(field.IsValid());
                }
            }
        }
    }
}

} // namespace
} // namespace quillmar
