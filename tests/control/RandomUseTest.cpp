// Fields with random rules driven by random keys, clicks, pastes, exits and validations through the
// standalone host, from a fixed seed. After every step the validity answers agree, a successful validation
// leaves a valid text, and strong sifting keeps every text the user made one the whole-text test accepts;
// at the end the properties survive saving and loading.
#include "control/Quillmar.h"
#include "host/standalone/MemoryPropertyStore.h"
#include "host/standalone/StandaloneHost.h"
#include "input/Shapes.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace quillmar {
namespace {

using standalone::MemoryPropertyStore;
using standalone::StandaloneHost;

constexpr const char* kLocales[] = { "en_US", "de_DE", "fr_FR" };
constexpr int16_t kMoves[]
    = { standalone::VK_LEFT, standalone::VK_RIGHT, standalone::VK_HOME, standalone::VK_END };
// Digits, signs and separators of numbers, dates and times in the three locales, letters, and a few
// characters with case mappings of their own.
constexpr std::u16string_view kKeys = u"0123456789-+.,eE/: apmAPMxQ\u00e9\u00df\u202f#*";

struct Field {
    explicit Field(const char* locale)
        : host(locale) {
        host.container.name = u"Text1"; // the text's write default, so a text "Text1" loads back as itself
    }
    StandaloneHost host;
    Quillmar control { host.Services() };
};

class RandomUse {
public:
    explicit RandomUse(uint32_t seed)
        : m_rng(seed) { }

    size_t Below(size_t n) { return m_rng() % n; }
    bool Coin() { return Below(2) == 0; }
    std::u16string Text(size_t maxLength) {
        std::u16string text(Below(maxLength + 1), u' ');
        for (char16_t& c : text)
            c = kKeys[Below(kKeys.size())];
        return text;
    }

    // The rules, through the writers; the sign rules go before or after the type.
    void Declare(Field& field) {
        Quillmar& c = field.control;
        field.host.container.userMode = false;
        const bool signsLast = Coin();
        const auto signs = [&] {
            c.SetMustBePositive(Below(4) == 0);
            c.SetMustBeNegative(Below(4) == 0);
            c.SetAllowScientificFormat(Coin());
        };
        if (!signsLast) signs();
        c.SetMustBeType(static_cast<int32_t>(Below(10)));
        if (signsLast) signs();
        c.SetInputSifting(Below(4) == 0 ? static_cast<int32_t>(Below(2)) : vldStrong);
        c.SetThousandSeparator(Coin());
        c.SetMustNotBeZero(Below(4) == 0);
        c.SetRequiredField(Below(4) == 0);
        c.SetFinalValidationActive(Below(8) != 0);
        c.SetShowAsUnderstood(Below(4) != 0);
        c.SetOnErrorSelectEntireField(Coin());
        c.SetMustBeUpperCase(Below(4) == 0);
        c.SetOnlyLettersWithSpace(Below(6) == 0);
        c.SetMaxLength(static_cast<int32_t>(Below(12)));
        c.SetMaxNumberOfDecimals(static_cast<int32_t>(Below(4)));
        c.SetMinValue(Text(3));
        c.SetMaxValue(Text(4));
        c.SetDefaultValue(Text(4));
        if (Below(4) == 0) c.SetCustomMask(u"##?*");
        c.SetMustNotBeValues({ Variant(), Text(2) });
        c.SetOLEDropMode(2);
        field.host.container.userMode = true;
    }

    // One step as a person takes it; `log` gets its name. False for the steps that validate, where the
    // control may write a text of its own.
    bool Step(Field& field, std::string& log) {
        auto& box = field.host.editBox;
        const auto position = [&] { return static_cast<int32_t>(Below(box.Text().size() + 2)); };
        switch (Below(14)) {
        case 0:
        case 1:
        case 2: {
            log += " key";
            const char16_t key = kKeys[Below(kKeys.size())];
            box.TypeKey(key, Below(8) == 0 ? 2 : 0); // now and then with Ctrl held
            break;
        }
        case 3:
            log += " backspace";
            box.PressBackspace();
            break;
        case 4:
            log += " delete";
            box.PressDelete();
            break;
        case 5: {
            log += " move";
            const int16_t move = kMoves[Below(4)];
            box.PressNavigation(move, Coin()); // with Shift half the time
            break;
        }
        case 6:
            log += " paste";
            box.Paste(Text(6));
            break;
        case 7:
            log += " ctrl-v";
            box.PasteWithKeys(Text(6));
            break;
        case 8:
            log += " ctrl-x";
            box.CutWithKeys();
            break;
        case 9:
            log += " select-all";
            box.SelectAll();
            break;
        case 10:
            log += " click";
            Coin() ? box.ClickAt(position()) : box.DoubleClickAt(position());
            break;
        case 11: {
            log += " drop";
            const int32_t at = position();
            box.DropText(at, Text(4));
            break;
        }
        case 12:
            log += " leave";
            box.LeaveField();
            return false;
        default: {
            log += " validate";
            const bool valid = field.control.Validate();
            const bool checked
                = field.control.MustBeType() != vldUnspecified && field.control.FinalValidationActive();
            EXPECT_TRUE(!valid || !checked || field.control.CheckInput() == 0)
                << "a successful validation left an invalid text";
            return false;
        }
        }
        return true;
    }

private:
    std::mt19937 m_rng;
};

bool Typeable(const Field& field) {
    const std::u16string text = field.control.Text();
    return text.empty()
        || WholeTextTest(text, field.control.state(), field.control.settings(), field.host.locale.Locale());
}

MemoryPropertyStore Saved(const Quillmar& control) {
    MemoryPropertyStore store;
    control.WriteProperties(store);
    // Loading sets the caret after the selection length, so a length never loads back; and the type's writer
    // clears a sign rule set on a byte field after its type.
    store.WriteProperty(u"SelLength", int32_t { 0 }, int32_t { 0 });
    if (control.MustBeType() == vldByte) store.WriteProperty(u"MustBeNegative", false, false);
    return store;
}

TEST(RandomUse, EveryStepKeepsTheFieldConsistent) {
    RandomUse random(20241122);
    for (int round = 0; round < 200; ++round) {
        const char* locale = kLocales[round % 3];
        Field field(locale);
        random.Declare(field);
        const Quillmar& c = field.control;
        std::string log = std::string(locale) + " type " + std::to_string(c.MustBeType()) + ":";
        for (int step = 0; step < 30; ++step) {
            const std::u16string before = c.Text();
            const std::u16string savedBefore = c.state().SavedText;
            const bool byUser = random.Step(field, log);
            SCOPED_TRACE(log);
            ASSERT_EQ(c.IsValid(), c.CheckInput() <= 0);
            ASSERT_TRUE(c.MustBeType() != vldUnspecified || c.IsValid());
            // A refused change brings back the last accepted text, which the control may have written itself.
            const bool madeByUser = byUser && c.Text() != before && c.Text() != savedBefore;
            const bool sifted = c.InputSifting() == vldStrong && c.MustBeType() != vldUnspecified;
            ASSERT_TRUE(!madeByUser || !sifted || Typeable(field))
                << "strong sifting let an untypeable text through";
        }
        const MemoryPropertyStore saved = Saved(c);
        Field loaded(locale);
        loaded.control.ReadProperties(saved);
        SCOPED_TRACE(log);
        EXPECT_EQ(Saved(loaded.control).ToBytes(), saved.ToBytes()) << "the properties changed on loading";
    }
}

} // namespace
} // namespace quillmar
