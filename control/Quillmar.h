#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/Enums.h>
#include <quillmar/base/PropertyError.h>
#include <quillmar/base/PropertyStore.h>
#include <quillmar/base/Settings.h>
#include <quillmar/base/Variant.h>
#include <quillmar/host/Host.h>
#include <quillmar/host/QuillmarEvents.h>
#include <quillmar/input/Refusal.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmar {

/// The type flags and the state the control derives and keeps beside its properties.
struct ControlState : TypeFlags {
    /// True while the `Text` or `Value` writer, or a repair of a change, writes the edit box's text: the
    /// change that write causes is reported to the form but not processed again.
    bool InternalTextChange = false;
    /// True while the final validation writes the edit box's text (the text as understood, or a corrective
    /// action): that change is processed as any other, and the text it leaves becomes the restore point.
    bool ProgrammaticWrite = false;
    /// The last value known to be valid.
    Variant LastValidValue;
    /// The full-precision number last given to `Value` while a relative accuracy is in force.
    Variant ExactValue;
    /// The user changed the text since `Value` was last written.
    bool TextEditedSinceValue = false;
    /// The text the control last put back as the previous valid value.
    std::u16string PreviousText;
    /// The last accepted text and selection, taken after each key release, mouse release and accepted
    /// change; strong sifting restores it.
    std::u16string SavedText;
    /// The caret and the selection's length that go with `SavedText`, in UTF-16 code units.
    ///@{
    int32_t SavedSelStart = 0;
    int32_t SavedSelLength = 0;
    ///@}
    /// True while Ctrl is held in the edit box: keys typed with it are not sifted.
    bool CtrlKeyDown = false;
};

/// The single-line data-entry field. Every property `X` has a reader `X()` and, unless read-only, a writer
/// `SetX(value)`. Each writer that succeeds stores the value, tells the container `PropertyChanged` with the
/// property's name, then runs its interlocks through the other writers (which notify in turn); only
/// `SetMustBeType` runs its interlocks first and notifies last. A refused value throws `PropertyError` (380,
/// or 382/393 for the two list properties at run time) and changes nothing. Nothing else throws.
/// The control reaches its host only through the services it is given, which must outlive it.
class QUILLMAR_CORE_EXPORT Quillmar : private EditBoxEvents {
public:
    /// A control reaching its container, edit box, alerts, locale, about box and message catalogue through
    /// `host`. It registers for the edit box's events; the properties keep their built-in values until
    /// `InitProperties` or `ReadProperties` runs.
    explicit Quillmar(HostServices host);
    ~Quillmar() override;
    Quillmar(const Quillmar&) = delete;
    Quillmar& operator=(const Quillmar&) = delete;

    /// Where the events go; nullptr for none. The listener must outlive the control or be reset.
    void SetEventListener(QuillmarEvents* listener) noexcept { m_events = listener; }

    /// The declared rules as the checks read them.
    [[nodiscard]] const Settings& settings() const noexcept { return m_settings; }
    /// The derived type flags and the kept values.
    [[nodiscard]] const ControlState& state() const noexcept { return m_state; }
    /// The locale the field reads and writes numbers, dates and times in: the host's, asked afresh.
    [[nodiscard]] LocaleInfo Locale() const;
    /// The rule that refused the last typed key, change or paste (a refused key, a change sprung back, extra
    /// decimals cut away, a paste refused whole); `None` once a later key, change or paste of the user is
    /// accepted. For a tip that says why a key did nothing (`RefusalText` words it).
    [[nodiscard]] Refusal LastRefusal() const noexcept { return m_lastRefusal; }

    // Persistence.

    /// A control placed on a form for the first time: every property at its initial value, set directly
    /// (no writer runs, nothing is notified), the type flags cleared, and the extender's name as the text.
    void InitProperties();
    /// A control loaded with its form: reads every entry in order, raw where the value is taken as saved,
    /// through the writers for `MustBeType`, "Text", `Enabled` and `MouseIcon`, into the edit box for its own
    /// properties. A stored `MustBeType` outside 0 to 9 throws 380 from its writer, as any writer would.
    void ReadProperties(const PropertyStore& store);
    /// Writes every stored property, in the order of `kStoredProperties`, against its write default (the font
    /// against the container's ambient font), the edit box's properties as the box holds them now.
    void WriteProperties(PropertyStore& store) const;

    // Methods.

    /// The constraints the edit box's text breaks (`ConstraintsConstants` bits); 0 for a valid text and
    /// always 0 when `MustBeType` is `vldUnspecified`.
    [[nodiscard]] int32_t CheckInput() const;
    /// True when `CheckInput` is 0 (or negative); always true for `vldUnspecified`.
    [[nodiscard]] bool IsValid() const;
    /// The message the final validation would show for the edit box's text now, without the line of a
    /// corrective action: empty when the text is valid; the field's own `ErrorMessage` when
    /// `ErrorMessageMode` is `vldCustom`; otherwise the composed message. Where that would say nothing (a
    /// custom mode without a message, or a basic message that has no words for the broken rule),
    /// "This entry is not valid." stands in, so that an invalid field always has a reason to show.
    [[nodiscard]] std::u16string CurrentErrorMessage() const;
    /// The final validation, as on leaving the field. A valid text is rewritten as understood (when
    /// `ShowAsUnderstood`) and remembered as `LastValidValue`; an invalid one gets the first corrective
    /// action of `Actions` that can be done, is selected when `OnErrorSelectEntireField`, beeps when
    /// `Beeping` and is explained in a message box when `ShowErrorMessage`. True when the text is valid, or
    /// when the field has no type or final validation is off.
    bool Validate();
    /// Repaints the edit box.
    void Refresh();
    /// Starts a drag-and-drop operation with the edit box as its source.
    void OLEDrag();

    // Surface.

    /// The host resized the control: the edit box covers it from the origin, and the control takes the size
    /// the edit box accepted. Never throws.
    void Resize(int32_t width, int32_t height);
    /// The host shows the control: the edit box takes the tool tip the form set on the control. Never throws.
    void Show();
    /// The control that last kept the user in place after a failed final validation on this thread (the
    /// handle of its edit box), 0 when none.
    [[nodiscard]] static int32_t FocusHoldWindow() noexcept;
    /// Opens the about box modally.
    void ShowAboutBox();

    // Properties held by the control.

    /// Whether a number may carry the locale's thousands separator (`vldTSAllowed`) or not (`vldTSForbidden`,
    /// the default).
    ///@{
    [[nodiscard]] ThousandSeparatorConstants ThousandSeparator() const noexcept {
        return m_settings.ThousandSeparator;
    }
    /// 0 or 1; anything else throws 380.
    void SetThousandSeparator(int32_t value);
    ///@}
    /// A number may not be below zero (zero passes unless `MustNotBeZero`). Setting it makes the field
    /// numeric.
    ///@{
    [[nodiscard]] bool MustBePositive() const noexcept { return m_settings.MustBePositive; }
    /// True makes the field numeric (a date or time type becomes `vldDouble`) and clears `MustBeNegative`.
    void SetMustBePositive(bool value);
    ///@}
    /// A number may not be above zero (zero passes unless `MustNotBeZero`). Setting it makes the field
    /// numeric.
    ///@{
    [[nodiscard]] bool MustBeNegative() const noexcept { return m_settings.MustBeNegative; }
    /// True makes the field numeric and clears `MustBePositive`.
    void SetMustBeNegative(bool value);
    ///@}
    /// Whether a refused key, a change sprung back and a failed final validation sound the beep; on by
    /// default.
    ///@{
    [[nodiscard]] bool Beeping() const noexcept { return m_settings.Beeping; }
    void SetBeeping(bool value);
    ///@}
    /// The text must be in capitals; typed letters are turned into capitals. One of the three case rules.
    ///@{
    [[nodiscard]] bool MustBeUpperCase() const noexcept { return m_settings.MustBeUpperCase; }
    /// True clears `MustBeLowerCase`, then `MustBeProperCase`.
    void SetMustBeUpperCase(bool value);
    ///@}
    /// The text must be in small letters; typed letters are turned into small ones. One of the three case
    /// rules.
    ///@{
    [[nodiscard]] bool MustBeLowerCase() const noexcept { return m_settings.MustBeLowerCase; }
    /// True clears `MustBeUpperCase`, then `MustBeProperCase`.
    void SetMustBeLowerCase(bool value);
    ///@}
    /// Every word must begin with a capital and go on in small letters. One of the three case rules.
    ///@{
    [[nodiscard]] bool MustBeProperCase() const noexcept { return m_settings.MustBeProperCase; }
    /// True clears `MustBeUpperCase`, then `MustBeLowerCase`.
    void SetMustBeProperCase(bool value);
    ///@}
    /// The text may hold no digit. One of the three character-class rules.
    ///@{
    [[nodiscard]] bool NoDigits() const noexcept { return m_settings.NoDigits; }
    /// True clears `OnlyLetters`, then `OnlyLettersWithSpace`.
    void SetNoDigits(bool value);
    ///@}
    /// The text may hold letters only. One of the three character-class rules.
    ///@{
    [[nodiscard]] bool OnlyLetters() const noexcept { return m_settings.OnlyLetters; }
    /// True clears `NoDigits`, then `OnlyLettersWithSpace`.
    void SetOnlyLetters(bool value);
    ///@}
    /// The text may hold letters and spaces only. One of the three character-class rules.
    ///@{
    [[nodiscard]] bool OnlyLettersWithSpace() const noexcept { return m_settings.OnlyLettersWithSpace; }
    /// True clears `NoDigits`, then `OnlyLetters`.
    void SetOnlyLettersWithSpace(bool value);
    ///@}
    /// Whether a number may be written with an exponent (1.5E3). Setting it makes the field numeric.
    ///@{
    [[nodiscard]] bool AllowScientificFormat() const noexcept { return m_settings.AllowScientificFormat; }
    /// True makes the field numeric.
    void SetAllowScientificFormat(bool value);
    ///@}
    /// Whether the final validation runs when the focus leaves the field; on by default. Off, leaving never
    /// checks the text.
    ///@{
    [[nodiscard]] bool FinalValidationActive() const noexcept { return m_settings.FinalValidationActive; }
    void SetFinalValidationActive(bool value);
    ///@}
    /// The only characters the text may hold; empty for no such rule.
    ///@{
    [[nodiscard]] const std::u16string& ValidCharactersSet() const noexcept {
        return m_settings.ValidCharactersSet;
    }
    void SetValidCharactersSet(std::u16string_view value);
    ///@}
    /// Characters the text may not hold, beside those the other rules refuse.
    ///@{
    [[nodiscard]] const std::u16string& ExtraExcludedCharacters() const noexcept {
        return m_settings.ExtraExcludedCharacters;
    }
    void SetExtraExcludedCharacters(std::u16string_view value);
    ///@}
    /// Characters the text may hold although `ValidCharactersSet`, `NoDigits`, `OnlyLetters` or
    /// `OnlyLettersWithSpace` would refuse them; `ExtraExcludedCharacters` still refuses them.
    ///@{
    [[nodiscard]] const std::u16string& ExtraIncludedCharacters() const noexcept {
        return m_settings.ExtraIncludedCharacters;
    }
    void SetExtraIncludedCharacters(std::u16string_view value);
    ///@}
    /// An empty text is not valid.
    ///@{
    [[nodiscard]] bool RequiredField() const noexcept { return m_settings.RequiredField; }
    void SetRequiredField(bool value);
    ///@}
    /// The most digits a number may have after the decimal separator, 0 to 32; 0 for no limit.
    ///@{
    [[nodiscard]] int16_t MaxNumberOfDecimals() const noexcept { return m_settings.MaxNumberOfDecimals; }
    /// Stores the value first (negative as 0), then throws 380 above 32: the refused value stays stored
    /// and no notification is sent.
    void SetMaxNumberOfDecimals(int32_t value);
    ///@}
    /// A pattern the whole text must match, case-sensitively: `?` any one character, `*` any run, `#` a
    /// digit, `[a-z]` one of a list (`[!...]` one not in it); empty for none. A malformed pattern never
    /// matches.
    ///@{
    [[nodiscard]] const std::u16string& CustomMask() const noexcept { return m_settings.CustomMask; }
    void SetCustomMask(std::u16string_view value);
    ///@}
    /// The value the corrective action "insert default" puts in the field; the empty string for none. It has
    /// the field's type: a number, a date or a time, or any value for a text field.
    ///@{
    [[nodiscard]] const Variant& DefaultValue() const noexcept { return m_settings.DefaultValue; }
    /// The empty string clears it. For a numeric field a non-number is ignored quietly and a text is stored
    /// as its double; for a date (time) field anything but a date (time) is ignored and a text is stored as
    /// its date-time; for a text field anything is stored as given.
    void SetDefaultValue(const Variant& value);
    ///@}
    /// The smallest value a number, date or time may have; the empty string for no lower limit.
    ///@{
    [[nodiscard]] const Variant& MinValue() const noexcept { return m_settings.MinValue; }
    /// The empty string clears it. A number (numeric field) or a date or time of the field's class is stored
    /// (texts converted); anything else is ignored quietly. A text field stores nothing but still notifies.
    void SetMinValue(const Variant& value);
    ///@}
    /// The largest value a number, date or time may have; the empty string for no upper limit.
    ///@{
    [[nodiscard]] const Variant& MaxValue() const noexcept { return m_settings.MaxValue; }
    /// As `SetMinValue`.
    void SetMaxValue(const Variant& value);
    ///@}
    /// A number equal to zero is not valid.
    ///@{
    [[nodiscard]] bool MustNotBeZero() const noexcept { return m_settings.MustNotBeZero; }
    void SetMustNotBeZero(bool value);
    ///@}
    /// The values the field must not hold, a design-time property: a copy of the forbidden values (slot 0
    /// unused, the values in slots 1 to the upper bound); throws 393 at run time.
    [[nodiscard]] VariantArray MustNotBeValues() const;
    /// Stores a copy; throws 382 at run time.
    void SetMustNotBeValues(const VariantArray& value);
    /// The corrective actions the final validation tries in order on an invalid text, a design-time
    /// property: a copy of the four slots (slot 0 unused, slots 1 to 3 one `ActionsConstants` flag word
    /// each, the action plus `vldACChecked` when enabled); throws 393 at run time.
    [[nodiscard]] VariantArray Actions() const;
    /// Stores a copy; throws 382 at run time.
    void SetActions(const VariantArray& value);
    /// Whether a failed final validation explains itself in a message box; on by default.
    ///@{
    [[nodiscard]] bool ShowErrorMessage() const noexcept { return m_settings.ShowErrorMessage; }
    void SetShowErrorMessage(bool value);
    ///@}
    /// Whether leaving the field runs the final validation by itself (`vldAutomatic`, the default) or only
    /// when the program calls `Validate` (`vldSemiAutomatic`).
    ///@{
    [[nodiscard]] ValidationModeConstants ValidationMode() const noexcept {
        return m_settings.ValidationMode;
    }
    /// 0 or 1; anything else throws 380.
    void SetValidationMode(int32_t value);
    ///@}
    /// The title of the error message box; "Invalid Entry" by default.
    ///@{
    [[nodiscard]] const std::u16string& MessageBoxTitle() const noexcept {
        return m_settings.MessageBoxTitle;
    }
    void SetMessageBoxTitle(std::u16string_view value);
    ///@}
    /// How the error message is composed: a short basic message for the first broken rule, an advanced one
    /// that says what the field takes (the default), or the author's own `ErrorMessage`.
    ///@{
    [[nodiscard]] ErrorMessageModeConstants ErrorMessageMode() const noexcept {
        return m_settings.ErrorMessageMode;
    }
    /// 1, 2 or 3; anything else throws 380.
    void SetErrorMessageMode(int32_t value);
    ///@}
    /// The data type the field must hold (`vldUnspecified` for no rules at all). The type decides how the
    /// text is sifted, converted and checked.
    ///@{
    [[nodiscard]] MustBeTypeConstants MustBeType() const noexcept { return m_settings.MustBeType; }
    /// 0 to 9; anything else throws 380. Re-derives the type flags and clears what the new type cannot hold
    /// (for a byte `MustBeNegative`; for a date or time the sign rules, the scientific format and the limits
    /// and default of the other class), then stores and notifies.
    void SetMustBeType(int32_t value);
    ///@}
    /// Whether a failed final validation selects the whole text, so that the next key replaces it.
    ///@{
    [[nodiscard]] bool OnErrorSelectEntireField() const noexcept {
        return m_settings.OnErrorSelectEntireField;
    }
    void SetOnErrorSelectEntireField(bool value);
    ///@}
    /// How hard typing is filtered: not at all (`vldNone`), key by key (`vldWeak`), or the whole text after
    /// each change, which springs back when it can no longer become valid (`vldStrong`, the default).
    ///@{
    [[nodiscard]] InputSiftingConstants InputSifting() const noexcept { return m_settings.InputSifting; }
    /// 0, 1 or 2; anything else throws 380.
    void SetInputSifting(int32_t value);
    ///@}
    /// The significant digits a number written to `Value` is shown with, 0 to 32; 0 shows it in full. `Value`
    /// keeps the exact number until the user edits the text.
    ///@{
    [[nodiscard]] int16_t MaxRelativeAccuracy() const noexcept { return m_settings.MaxRelativeAccuracy; }
    /// Negative counts as 0; above 32 throws 380 and keeps the old value.
    void SetMaxRelativeAccuracy(int32_t value);
    ///@}
    /// The icon of the error message box; `vldMBIExclamation` by default.
    ///@{
    [[nodiscard]] MsgBoxIcons MessageBoxIcon() const noexcept { return m_settings.MessageBoxIcon; }
    /// 0 to 4; anything else throws 380.
    void SetMessageBoxIcon(int32_t value);
    ///@}
    /// The author's own error message, shown when `ErrorMessageMode` is `vldCustom`.
    ///@{
    [[nodiscard]] const std::u16string& ErrorMessage() const noexcept { return m_settings.ErrorMessage; }
    void SetErrorMessage(std::u16string_view value);
    ///@}
    /// Whether a valid text is rewritten, on leaving the field, as the value it was understood as (in that
    /// value's own text form); on by default.
    ///@{
    [[nodiscard]] bool ShowAsUnderstood() const noexcept { return m_settings.ShowAsUnderstood; }
    void SetShowAsUnderstood(bool value);
    ///@}

    // Text and value.

    /// The edit box's text.
    [[nodiscard]] std::u16string Text() const;
    /// Writes the edit box's text; a text that is valid and converts to the type becomes `LastValidValue`.
    void SetText(std::u16string_view value);
    /// The text converted to the field's type (while a relative accuracy is in force and the user has not
    /// edited the text, the exact number last written); the text itself when it does not convert.
    [[nodiscard]] Variant Value() const;
    /// Shows the value's text; in a numeric field with `MaxRelativeAccuracy` of 1 or more, shows it rounded
    /// to that many significant digits and keeps the exact number for `Value`.
    void SetValue(const Variant& value);

    // Properties of the edit box.

    /// The longest text the user may type, in UTF-16 code units; 0 for no limit.
    ///@{
    [[nodiscard]] int32_t MaxLength() const;
    void SetMaxLength(int32_t value);
    ///@}
    /// Where the caret stands or the selection begins, in UTF-16 code units from the start of the text.
    ///@{
    [[nodiscard]] int32_t SelStart() const;
    void SetSelStart(int32_t value);
    ///@}
    /// The length of the selection in UTF-16 code units; 0 for none.
    ///@{
    [[nodiscard]] int32_t SelLength() const;
    void SetSelLength(int32_t value);
    ///@}
    /// The selected text; writing it replaces the selection.
    ///@{
    [[nodiscard]] std::u16string SelText() const;
    void SetSelText(std::u16string_view value);
    ///@}
    /// The text's horizontal alignment: 0 left, 1 right, 2 centre.
    ///@{
    [[nodiscard]] int16_t Alignment() const;
    void SetAlignment(int16_t value);
    ///@}
    /// The edit box's look: flat (`vldFlat`) or sunken (`vld3D`).
    ///@{
    [[nodiscard]] int16_t Appearance() const;
    void SetAppearance(int16_t value);
    ///@}
    /// The edit box's border: none (`vldNoBorder`) or a single line (`vldFixedSingle`).
    ///@{
    [[nodiscard]] int16_t BorderStyle() const;
    void SetBorderStyle(int16_t value);
    ///@}
    /// Whether the text is read-only to the user (a program can still write it).
    ///@{
    [[nodiscard]] bool Locked() const;
    void SetLocked(bool value);
    ///@}
    /// The character shown in place of every character of the text; empty to show the text.
    ///@{
    [[nodiscard]] std::u16string PasswordChar() const;
    void SetPasswordChar(std::u16string_view value);
    ///@}
    /// Whether the edit box reads from right to left.
    ///@{
    [[nodiscard]] bool RightToLeft() const;
    void SetRightToLeft(bool value);
    ///@}
    /// The mouse cursor over the edit box: 0 the default, 1 to 15 the standard cursors, 99 the `MouseIcon`.
    ///@{
    [[nodiscard]] int16_t MousePointer() const;
    void SetMousePointer(int16_t value);
    ///@}
    /// The picture of the mouse cursor when `MousePointer` is 99, shared by reference.
    ///@{
    [[nodiscard]] PictureRef MouseIcon() const;
    void SetMouseIcon(PictureRef value);
    ///@}
    /// Whether the edit box's font is bold.
    ///@{
    [[nodiscard]] bool FontBold() const;
    void SetFontBold(bool value);
    ///@}
    /// Whether the edit box's font is italic.
    ///@{
    [[nodiscard]] bool FontItalic() const;
    void SetFontItalic(bool value);
    ///@}
    /// Whether the edit box's font is underlined.
    ///@{
    [[nodiscard]] bool FontUnderline() const;
    void SetFontUnderline(bool value);
    ///@}
    /// Whether the edit box's font is struck through.
    ///@{
    [[nodiscard]] bool FontStrikethru() const;
    void SetFontStrikethru(bool value);
    ///@}
    /// The size of the edit box's font, in points.
    ///@{
    [[nodiscard]] float FontSize() const;
    void SetFontSize(float value);
    ///@}
    /// How a drag starts from the edit box: 0 by the program (`OLEDrag`), 1 by the user.
    ///@{
    [[nodiscard]] int16_t OLEDragMode() const;
    void SetOLEDragMode(int16_t value);
    ///@}
    /// Whether the edit box takes drops: 0 none, 1 raising the drag-and-drop events to the form, 2 by itself.
    ///@{
    [[nodiscard]] int16_t OLEDropMode() const;
    void SetOLEDropMode(int16_t value);
    ///@}
    /// The control's own enabled state; the writer sets the control's and the edit box's.
    ///@{
    [[nodiscard]] bool Enabled() const noexcept { return m_enabled; }
    void SetEnabled(bool value);
    ///@}
    /// The edit box's font. Assigning it from code changes nothing (only a loaded form sets it).
    ///@{
    [[nodiscard]] FontDesc Font() const;
    void SetFont(const FontDesc& value);
    ///@}
    /// The edit box's background colour, an OLE colour (0x00BBGGRR, or a system colour with the high bit
    /// set).
    ///@{
    [[nodiscard]] uint32_t BackColor() const;
    /// Changes nothing; only a loaded form sets the colour.
    void SetBackColor(uint32_t value);
    ///@}
    /// The edit box's text colour, an OLE colour (0x00BBGGRR, or a system colour with the high bit set).
    ///@{
    [[nodiscard]] uint32_t ForeColor() const;
    /// Changes nothing; only a loaded form sets the colour.
    void SetForeColor(uint32_t value);
    ///@}
    /// The face name of the edit box's font.
    ///@{
    [[nodiscard]] std::u16string FontName() const;
    /// Changes nothing; only a loaded form sets the font name.
    void SetFontName(std::u16string_view value);
    ///@}
    /// The edit box's handle.
    [[nodiscard]] int32_t hwnd() const;
    /// Whether the selection is hidden while the edit box does not have the focus.
    [[nodiscard]] bool HideSelection() const;

private:
    void OnKeyDown(int16_t& keyCode, int16_t& shift) override;
    void OnKeyPress(int16_t& keyAscii) override;
    void OnKeyUp(int16_t& keyCode, int16_t& shift) override;
    void OnMouseDown(int16_t& button, int16_t& shift, float& x, float& y) override;
    void OnMouseMove(int16_t& button, int16_t& shift, float& x, float& y) override;
    void OnMouseUp(int16_t& button, int16_t& shift, float& x, float& y) override;
    void OnClick() override;
    void OnDblClick() override;
    void OnChange() override;
    void OnFocusExit() override;
    bool OnPasteText(std::u16string& text) override;
    void OnOLEStartDrag(DataObject& data, int32_t& allowedEffects) override;
    void OnOLESetData(DataObject& data, int16_t& dataFormat) override;
    void OnOLEGiveFeedback(int32_t& effect, bool& defaultCursors) override;
    void OnOLEDragOver(DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y,
        int16_t& state) override;
    void OnOLEDragDrop(
        DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y) override;
    void OnOLECompleteDrag(int32_t& effect) override;

    void RepairChange();
    void GuardedWrite(std::u16string_view text, int32_t selStart, int32_t selLength);
    void TakeSnapshot();
    void RestoreSnapshot(Refusal refusal);
    void Beep();

    void Notify(std::u16string_view name);
    [[nodiscard]] int32_t RulesOf(std::u16string_view text) const;
    void ClearTypeFlags();
    void EnterNumericMode();
    void ClearLimitsOfOtherClass(int wantedClass);
    void SetLimit(Variant& limit, const Variant& value, std::u16string_view name);
    void RequireDesignTime(int error, std::u16string_view name) const;
    void WriteText(std::u16string_view text);
    void WriteCorrection(std::u16string_view text);
    int32_t PerformActions();
    void ShowErrorBox(std::u16string_view savedText, int32_t bits, int32_t actionCode);
    template <typename Apply> void EditFont(Apply apply, std::u16string_view name);

    HostServices m_host;
    QuillmarEvents* m_events = nullptr;
    Settings m_settings;
    ControlState m_state;
    Refusal m_lastRefusal = Refusal::None;
    bool m_enabled = true;
};

} // namespace quillmar
