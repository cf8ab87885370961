// A field with fuzzed rules, driven through the standalone edit box as a person would drive it: typing,
// deleting, moving, selecting, pasting, cutting, dropping, clicking, hovering, dragging, leaving the field,
// and validating, while the form's program now and then writes its Text, Value, SelText or MaxLength.
// After every step:
//  - IsValid agrees with CheckInput (and is true for a field without a type);
//  - a Validate that returns true leaves a text the rules accept, which a second Validate keeps as it is;
//  - under strong sifting a typed field holds a text the whole-text test accepts (or the empty text), unless
//    the step was refused and the last accepted text came back, or the control itself wrote the text;
// and, at the step that asks for it, the properties saved, loaded into a fresh control and saved again give
// the same bytes. That check costs as much as dozens of keystrokes, so the script chooses where it runs (any
// point in an edit, or at the end) and it runs once per input at most. Nothing may throw but a writer's
// PropertyError.
//
// The input: a locale, the rules (see `DeclareRules`), then one step per opcode byte (see `Step`); texts are
// a length byte and that many units in the encoding of `ByteReader::NextUnit`.
#include "control/Quillmar.h"
#include "fuzz/FuzzSupport.h"
#include "fuzz/SavedProperties.h"
#include "input/Shapes.h"

namespace quillmar::fuzz {
namespace {

using quillmar::MemoryPropertyStore;
using standalone::StandaloneHost;

constexpr int kMaxSteps = 64;
constexpr size_t kMaxTextLength = 12;

// The focus hold is per thread and outlives the controls; a valid field leaving its box clears it, so that
// every input starts as if it were the first.
void ReleaseFocusHold() {
    static StandaloneHost host;
    static Quillmar untyped(host.Services());
    host.editBox.LeaveField();
    Require(Quillmar::FocusHoldWindow() == 0, "the focus hold survives a valid field's exit");
}

template <typename Write> void WriteOrRefuse(Write write) {
    try {
        write();
    } catch (const PropertyError&) {
        // A value out of range, refused as the property documents.
    }
}

void DeclareRules(Quillmar& c, StandaloneHost& host, ByteReader& in) {
    host.container.userMode = false; // the two lists are set at design time only
    const uint8_t signs = in.Byte();
    const auto setSigns = [&] {
        c.SetMustBePositive((signs & 1) != 0);
        c.SetMustBeNegative((signs & 2) != 0);
        c.SetAllowScientificFormat((signs & 4) != 0);
    };
    if ((signs & 8) == 0) setSigns();
    c.SetMustBeType(static_cast<int32_t>(in.Pick(10)));
    if ((signs & 8) != 0) setSigns();
    c.SetInputSifting(static_cast<int32_t>(in.Pick(3)));

    const uint8_t flags = in.Byte();
    c.SetThousandSeparator(flags & 1);
    c.SetMustNotBeZero((flags & 2) != 0);
    c.SetRequiredField((flags & 4) != 0);
    c.SetFinalValidationActive((flags & 8) == 0);
    c.SetShowAsUnderstood((flags & 16) == 0);
    c.SetOnErrorSelectEntireField((flags & 32) != 0);
    c.SetValidationMode((flags & 64) != 0 ? vldSemiAutomatic : vldAutomatic);
    c.SetBeeping((flags & 128) != 0);

    const uint8_t text = in.Byte();
    if ((text & 3) == 1) c.SetMustBeUpperCase(true);
    if ((text & 3) == 2) c.SetMustBeLowerCase(true);
    if ((text & 3) == 3) c.SetMustBeProperCase(true);
    if ((text & 12) == 4) c.SetNoDigits(true);
    if ((text & 12) == 8) c.SetOnlyLetters(true);
    if ((text & 12) == 12) c.SetOnlyLettersWithSpace(true);
    c.SetOLEDropMode((text & 16) != 0 ? 2 : 0);
    c.SetErrorMessageMode(1 + static_cast<int32_t>(in.Pick(3)));

    c.SetMaxLength(static_cast<int32_t>(in.Pick(20)));
    WriteOrRefuse([&] { c.SetMaxNumberOfDecimals(static_cast<int32_t>(in.Pick(36))); });
    WriteOrRefuse([&] { c.SetMaxRelativeAccuracy(static_cast<int32_t>(in.Pick(36))); });
    c.SetMinValue(in.Text(kMaxTextLength));
    c.SetMaxValue(in.Text(kMaxTextLength));
    c.SetDefaultValue(in.Text(kMaxTextLength));
    c.SetCustomMask(in.Text(kMaxTextLength));
    c.SetValidCharactersSet(in.Text(kMaxTextLength));
    c.SetExtraIncludedCharacters(in.Text(3));
    c.SetExtraExcludedCharacters(in.Text(3));
    VariantArray forbidden(1 + in.Pick(3));
    for (size_t i = 1; i < forbidden.size(); ++i)
        forbidden[i] = in.Text(kMaxTextLength);
    c.SetMustNotBeValues(forbidden);
    VariantArray actions(4);
    for (size_t i = 1; i < actions.size(); ++i) {
        const uint8_t action = in.Byte();
        constexpr int32_t kKinds[] = { 0, vldACReturnPrevious, vldACInsertDefault, vldACInsertClosest };
        actions[i] = int32_t { kKinds[action & 3] | ((action & 4) != 0 ? 0 : vldACChecked) };
    }
    c.SetActions(actions);
    host.container.userMode = true;
}

MemoryPropertyStore SavedWithoutSelection(const Quillmar& control) {
    MemoryPropertyStore store = Saved(control);
    // Loading moves the caret after setting the selection length, which clears the selection: a length is
    // never loaded back, so it is left out of the comparison.
    store.WriteProperty(u"SelLength", int32_t { 0 }, int32_t { 0 });
    return store;
}

void CheckSaveAndLoad(const Quillmar& control, const LocaleInfo& locale) {
    MemoryPropertyStore first = SavedWithoutSelection(control);
    // Loading sets the type through its writer, which clears a sign rule a byte cannot hold: a byte field
    // made negative after its type loads without the rule.
    if (control.MustBeType() == vldByte) first.WriteProperty(u"MustBeNegative", false, false);
    const auto store = MemoryPropertyStore::FromBytes(first.ToBytes());
    Require(store.has_value(), "saved properties do not decode");
    NamedHost host;
    host.locale.Set(locale);
    Quillmar loaded(host.Services());
    loaded.ReadProperties(*store);
    RequireSameSave(first, SavedWithoutSelection(loaded), "saved properties change on loading and saving");
}

class Driver {
public:
    Driver(Quillmar& control, StandaloneHost& host, const LocaleInfo& locale)
        : m_c(control)
        , m_box(host.editBox)
        , m_locale(locale)
        , m_valid(control.CheckInput() == 0) { }

    // One step; the opcode byte comes first.
    void Step(ByteReader& in) {
        const std::u16string before = m_box.Text();
        const std::u16string savedBefore = m_c.state().SavedText;
        const unsigned opcode = in.Pick(22);
        const bool validates = opcode == 16 || opcode == 17;
        // The program may write any text; the whole-text test holds the user only.
        const bool programWrites = opcode == 21;
        switch (opcode) {
        case 0:
        case 1:
            m_box.TypeKey(in.NextUnit());
            break;
        case 2: {
            const char16_t key = in.NextUnit();
            m_box.TypeKey(key, static_cast<int16_t>(in.Pick(8)));
            break;
        }
        case 3:
            m_box.TypeText(in.Text(kMaxTextLength));
            break;
        case 4:
            m_box.PressBackspace();
            break;
        case 5:
            m_box.PressDelete();
            break;
        case 6: {
            constexpr int16_t kKeys[]
                = { standalone::VK_LEFT, standalone::VK_RIGHT, standalone::VK_HOME, standalone::VK_END };
            const uint8_t key = in.Byte();
            m_box.PressNavigation(kKeys[key & 3], static_cast<int16_t>((key >> 2) & 1));
            break;
        }
        case 7:
            m_box.Paste(in.Text(kMaxTextLength));
            break;
        case 8:
            m_box.PasteWithKeys(in.Text(kMaxTextLength));
            break;
        case 9:
            m_box.CutWithKeys();
            break;
        case 10:
            m_box.SelectAll();
            break;
        case 11:
            m_box.ClickAt(Position(in));
            break;
        case 12:
            m_box.DoubleClickAt(Position(in));
            break;
        case 13: {
            const int32_t position = Position(in);
            m_box.DropText(position, in.Text(kMaxTextLength));
            break;
        }
        case 14:
            m_c.SetSelStart(Position(in));
            break;
        case 15:
            m_c.SetSelLength(Position(in));
            break;
        case 16:
            m_box.LeaveField();
            break;
        case 18:
            m_box.HoverAt(Position(in));
            break;
        case 19:
            in.Bit() ? m_box.PressEnter() : m_c.OLEDrag();
            break;
        case 20:
            if (!m_savedAndLoaded) CheckSaveAndLoad(m_c, m_locale);
            m_savedAndLoaded = true;
            break;
        case 21:
            ProgramWrite(in);
            break;
        default: {
            const bool valid = m_c.Validate();
            if (valid && m_c.MustBeType() != vldUnspecified && m_c.FinalValidationActive()) {
                const std::u16string understood = m_box.Text();
                Require(m_c.CheckInput() == 0, "Validate returned true for a text the rules refuse", before,
                    understood);
                // The text as understood is understood as itself.
                Require(m_c.Validate() && m_box.Text() == understood, "a second Validate changes the text",
                    understood, m_box.Text());
            }
            break;
        }
        }
        // The text and the rules stay as they are until the next step, so what is found here is also what
        // the next step starts from.
        const int32_t bits = CheckAgreement();
        const std::u16string text = m_box.Text();
        const bool typeable = Typeable(text);
        if (validates)
            AfterValidation(before, bits, typeable);
        else if (SiftedStrongly() && !programWrites)
            Require(typeable || text == before || text == savedBefore,
                "strong sifting let through a text the whole-text test refuses", before, text);
        m_typeable = typeable;
        m_valid = bits == 0;
    }

private:
    // The form's program writes to the field while the user edits it.
    void ProgramWrite(ByteReader& in) {
        switch (in.Pick(5)) {
        case 0:
            m_c.SetText(in.Text(kMaxTextLength));
            break;
        case 1:
            m_c.SetValue(Variant(in.Text(kMaxTextLength)));
            break;
        case 2:
            m_c.SetValue(Variant(static_cast<double>(static_cast<int8_t>(in.Byte())) / 4));
            break;
        case 3:
            m_c.SetSelText(in.Text(kMaxTextLength));
            break;
        default:
            m_c.SetMaxLength(static_cast<int32_t>(in.Pick(20)));
            break;
        }
    }

    int32_t Position(ByteReader& in) {
        return static_cast<int32_t>(in.Byte() % (m_box.Text().size() + 3)) - 1;
    }

    [[nodiscard]] bool SiftedStrongly() const {
        return m_c.InputSifting() == vldStrong && m_c.MustBeType() != vldUnspecified;
    }

    [[nodiscard]] bool Typeable(std::u16string_view text) const {
        return text.empty() || WholeTextTest(text, m_c.state(), m_c.settings(), m_locale);
    }

    // Returns what CheckInput found.
    [[nodiscard]] int32_t CheckAgreement() const {
        const int32_t bits = m_c.CheckInput();
        const bool valid = m_c.IsValid();
        Require(valid == (bits <= 0), "IsValid disagrees with CheckInput", m_box.Text());
        if (m_c.MustBeType() == vldUnspecified)
            Require(valid && bits == 0, "a field without a type is not valid", m_box.Text());
        return bits;
    }

    // A valid, typeable text that validation rewrites as understood stays typeable. Corrective actions may
    // write what the user could not have typed (a text field's default goes in unchecked), so only a text
    // that was valid before is held to this.
    // `bits` and `typeable` describe the text after validation; the members still describe the one before.
    void AfterValidation(std::u16string_view before, int32_t bits, bool typeable) const {
        if (!SiftedStrongly() || !m_typeable || !m_valid || bits != 0) return;
        Require(
            typeable, "validation rewrote a valid text into one that cannot be typed", before, m_box.Text());
    }

    Quillmar& m_c;
    standalone::MemoryEditBox& m_box;
    const LocaleInfo& m_locale;
    bool m_typeable = true;
    bool m_valid;
    bool m_savedAndLoaded = false;
};

} // namespace
} // namespace quillmar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillmar;
    using namespace quillmar::fuzz;
    ReleaseFocusHold();
    ByteReader in({ data, size });
    const LocaleInfo& locale = Locales()[in.Pick(3)];
    NamedHost host;
    host.locale.Set(locale);
    Quillmar control(host.Services());
    DeclareRules(control, host, in);
    Driver driver(control, host, locale);
    for (int step = 0; step < kMaxSteps && !in.AtEnd(); ++step)
        driver.Step(in);
    return 0;
}
