#pragma once

#include <quillmar/QtExport.h>

#include <quillmar/control/Quillmar.h>
#include <quillmar/qt/QtConversions.h>

#include <QLineEdit>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <functional>
#include <memory>

namespace quillmar::qt {

class FieldHints;
class QtServices;

/// The data-entry field as a Qt widget. Its only child, a `QLineEdit`, is the edit box and always covers it.
/// Keys, mouse, focus, clipboard, input methods and drag and drop reach the control as they reach a person's
/// field: each event goes to the form first (as a signal whose reference arguments a directly connected slot
/// may change), then the control sifts, repairs and validates. Return, Enter and Escape are no characters of
/// the field: the form's KeyDown and KeyPress see them and may cancel them, but they are never sifted, and
/// go on to the dialog as from a `QLineEdit` (its default button, closing it). Every property of the control
/// is a `Q_PROPERTY` of the same name. Its writers never throw, whether called directly or through
/// `setProperty` (Qt cannot carry an exception out of a property write): a value the field refuses leaves the
/// property as it was, is reported once as a `qWarning` naming the field, the property and the value, and
/// raises `PropertyRefused`. The control's own writers (`control()`) keep throwing `quillmar::PropertyError`.
/// The enumerated properties have the control's enumeration types, so that Qt shows their enumerator names
/// (`vldInteger`) and takes them as text (`setProperty("MustBeType", "vldInteger")`).
/// In a `.ui` file the field's rules travel as one text, `rules`; the edit box's properties travel one by
/// one (Designer marks them `stdset="0"`, so `uic` code writes them with `setProperty`).
/// The message box, the beep and the about box are Qt's unless replaced (tests replace them).
class QUILLMAR_QT_EXPORT QuillmarEdit : public QWidget {
    Q_OBJECT
    // Designer shows the edit box's properties and the rules as one text (`rules`); the rules one by one,
    // the run-time state, the inert writers and the font size (a float, which Designer cannot edit) are for
    // code only.
    Q_PROPERTY(quillmar::ThousandSeparatorConstants ThousandSeparator READ ThousandSeparator WRITE
            SetThousandSeparator NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool MustBePositive READ MustBePositive WRITE SetMustBePositive NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(bool MustBeNegative READ MustBeNegative WRITE SetMustBeNegative NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(bool Beeping READ Beeping WRITE SetBeeping NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool MustBeUpperCase READ MustBeUpperCase WRITE SetMustBeUpperCase NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(bool MustBeLowerCase READ MustBeLowerCase WRITE SetMustBeLowerCase NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(bool MustBeProperCase READ MustBeProperCase WRITE SetMustBeProperCase NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(bool NoDigits READ NoDigits WRITE SetNoDigits NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool OnlyLetters READ OnlyLetters WRITE SetOnlyLetters NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool OnlyLettersWithSpace READ OnlyLettersWithSpace WRITE SetOnlyLettersWithSpace NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool AllowScientificFormat READ AllowScientificFormat WRITE SetAllowScientificFormat NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool FinalValidationActive READ FinalValidationActive WRITE SetFinalValidationActive NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QString ValidCharactersSet READ ValidCharactersSet WRITE SetValidCharactersSet NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QString ExtraExcludedCharacters READ ExtraExcludedCharacters WRITE SetExtraExcludedCharacters
            NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QString ExtraIncludedCharacters READ ExtraIncludedCharacters WRITE SetExtraIncludedCharacters
            NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(
        bool RequiredField READ RequiredField WRITE SetRequiredField NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(int MaxNumberOfDecimals READ MaxNumberOfDecimals WRITE SetMaxNumberOfDecimals NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QString CustomMask READ CustomMask WRITE SetCustomMask NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(
        QVariant DefaultValue READ DefaultValue WRITE SetDefaultValue NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QVariant MinValue READ MinValue WRITE SetMinValue NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QVariant MaxValue READ MaxValue WRITE SetMaxValue NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(
        bool MustNotBeZero READ MustNotBeZero WRITE SetMustNotBeZero NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QVariantList MustNotBeValues READ MustNotBeValues WRITE SetMustNotBeValues NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QVariantList Actions READ Actions WRITE SetActions NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool ShowErrorMessage READ ShowErrorMessage WRITE SetShowErrorMessage NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(quillmar::ValidationModeConstants ValidationMode READ ValidationMode WRITE SetValidationMode
            NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QString MessageBoxTitle READ MessageBoxTitle WRITE SetMessageBoxTitle NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(quillmar::ErrorMessageModeConstants ErrorMessageMode READ ErrorMessageMode WRITE
            SetErrorMessageMode NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(quillmar::MustBeTypeConstants MustBeType READ MustBeType WRITE SetMustBeType NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool OnErrorSelectEntireField READ OnErrorSelectEntireField WRITE SetOnErrorSelectEntireField
            NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(quillmar::InputSiftingConstants InputSifting READ InputSifting WRITE SetInputSifting NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(int MaxRelativeAccuracy READ MaxRelativeAccuracy WRITE SetMaxRelativeAccuracy NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(quillmar::MsgBoxIcons MessageBoxIcon READ MessageBoxIcon WRITE SetMessageBoxIcon NOTIFY
            PropertyChanged DESIGNABLE false)
    Q_PROPERTY(
        QString ErrorMessage READ ErrorMessage WRITE SetErrorMessage NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(bool ShowAsUnderstood READ ShowAsUnderstood WRITE SetShowAsUnderstood NOTIFY PropertyChanged
            DESIGNABLE false)
    Q_PROPERTY(QString Text READ Text WRITE SetText NOTIFY PropertyChanged)
    Q_PROPERTY(QVariant Value READ Value WRITE SetValue NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(int MaxLength READ MaxLength WRITE SetMaxLength NOTIFY PropertyChanged)
    Q_PROPERTY(int SelStart READ SelStart WRITE SetSelStart NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(int SelLength READ SelLength WRITE SetSelLength NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QString SelText READ SelText WRITE SetSelText NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(int Alignment READ Alignment WRITE SetAlignment NOTIFY PropertyChanged)
    Q_PROPERTY(quillmar::vldAppearanceConstants Appearance READ Appearance WRITE SetAppearance NOTIFY
            PropertyChanged)
    Q_PROPERTY(quillmar::vldBorderStyleConstants BorderStyle READ BorderStyle WRITE SetBorderStyle NOTIFY
            PropertyChanged)
    Q_PROPERTY(bool Locked READ Locked WRITE SetLocked NOTIFY PropertyChanged)
    Q_PROPERTY(QString PasswordChar READ PasswordChar WRITE SetPasswordChar NOTIFY PropertyChanged)
    Q_PROPERTY(bool RightToLeft READ RightToLeft WRITE SetRightToLeft NOTIFY PropertyChanged)
    Q_PROPERTY(int MousePointer READ MousePointer WRITE SetMousePointer NOTIFY PropertyChanged)
    Q_PROPERTY(bool FontBold READ FontBold WRITE SetFontBold NOTIFY PropertyChanged)
    Q_PROPERTY(bool FontItalic READ FontItalic WRITE SetFontItalic NOTIFY PropertyChanged)
    Q_PROPERTY(bool FontUnderline READ FontUnderline WRITE SetFontUnderline NOTIFY PropertyChanged)
    Q_PROPERTY(bool FontStrikethru READ FontStrikethru WRITE SetFontStrikethru NOTIFY PropertyChanged)
    Q_PROPERTY(float FontSize READ FontSize WRITE SetFontSize NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(int OLEDragMode READ OLEDragMode WRITE SetOLEDragMode NOTIFY PropertyChanged)
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE SetOLEDropMode NOTIFY PropertyChanged)
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(uint BackColor READ BackColor WRITE SetBackColor NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(uint ForeColor READ ForeColor WRITE SetForeColor NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(QString FontName READ FontName WRITE SetFontName NOTIFY PropertyChanged DESIGNABLE false)
    Q_PROPERTY(int hwnd READ hwnd DESIGNABLE false)
    Q_PROPERTY(bool HideSelection READ HideSelection DESIGNABLE false)
    Q_PROPERTY(QString rules READ rules WRITE setRules NOTIFY PropertyChanged)
    Q_PROPERTY(bool ShowRefusalTips READ ShowRefusalTips WRITE SetShowRefusalTips)
    Q_PROPERTY(bool ShowInlineState READ ShowInlineState WRITE SetShowInlineState)
public:
    /// A field in user mode in its parent's font (the application's without a parent), sized to its edit
    /// box and following the system's locale.
    explicit QuillmarEdit(QWidget* parent = nullptr);
    ~QuillmarEdit() override;

    /// The control this widget hosts. Its writers throw `quillmar::PropertyError` where this widget's
    /// refuse quietly.
    ///@{
    [[nodiscard]] Quillmar& control() { return *m_control; }
    [[nodiscard]] const Quillmar& control() const { return *m_control; }
    ///@}
    /// The edit box.
    [[nodiscard]] QLineEdit* lineEdit() const;

    /// Shows the error message instead of a `QMessageBox`: the text, the title and the icon flag
    /// (`MessageBoxIconFlag`). An empty handler restores the message box.
    ///@{
    using MessageBoxHandler = std::function<void(const QString& text, const QString& title, int icon)>;
    void SetMessageBoxHandler(MessageBoxHandler handler);
    ///@}
    /// Sounds the beep instead of `QApplication::beep`; an empty handler restores it.
    void SetBeepHandler(std::function<void()> handler);
    /// Opens the about box instead of the built-in one; an empty handler restores it.
    void SetAboutBoxHandler(std::function<void()> handler);
    /// The locale whose separators, date order and designators the field follows ("de_DE"); empty for the
    /// system's (`QLocale::system().name()`, read afresh at every use).
    void SetLocaleName(const QString& name);
    /// The name of the locale the field follows (the system's when none was set).
    [[nodiscard]] QString LocaleName() const;
    /// Whether a typed key or a paste the control refuses also shows, for a few seconds, a tip at the caret
    /// saying why ("Only digits can be typed here"); off by default. The beep and the text springing back
    /// stay as they are.
    ///@{
    void SetShowRefusalTips(bool on);
    [[nodiscard]] bool ShowRefusalTips() const;
    ///@}
    /// Whether the field shows, while its text breaks a rule, a frame in the warning colour and a warning
    /// icon whose tool tip is the rules in words; off by default. No message box opens for it.
    ///@{
    void SetShowInlineState(bool on);
    [[nodiscard]] bool ShowInlineState() const;
    ///@}
    /// The placeholder, the accessible description and the inline state.
    [[nodiscard]] FieldHints& hints() const { return *m_hints; }
    /// Lets the focus leave without the field's final validation (and without `BeforeLeaving`) the next
    /// time it leaves, if that is before the program returns to the event loop: for a form that moves the
    /// focus itself, for instance to the first invalid field it names in a summary. Changes no property.
    void SkipNextFocusExit();
    /// False while the form is being designed; true (the default) when it runs.
    ///@{
    void SetUserMode(bool userMode);
    [[nodiscard]] bool UserMode() const;
    ///@}

    // The methods are invokable through the meta-object system, for a field that a `QUiLoader` made from a
    // plugin's copy of this class.

    /// Validates now, as on leaving the field.
    Q_INVOKABLE bool Validate() { return m_control->Validate(); }
    /// The constraints the text breaks now, as `ConstraintsConstants` bits; 0 when it is valid or the field
    /// has no type.
    Q_INVOKABLE [[nodiscard]] int CheckInput() const { return m_control->CheckInput(); }
    /// True when `CheckInput` is 0: the text keeps every rule.
    Q_INVOKABLE [[nodiscard]] bool IsValid() const { return m_control->IsValid(); }
    /// The message the final validation would show for the text now, without a corrective action's line;
    /// empty when the text is valid. (`ErrorMessage` is the author's own message, a property.)
    Q_INVOKABLE [[nodiscard]] QString CurrentErrorMessage() const {
        return ToQString(m_control->CurrentErrorMessage());
    }
    /// Repaints the edit box.
    Q_INVOKABLE void Refresh() { m_control->Refresh(); }
    /// Starts a drag-and-drop operation with the edit box as its source (for `OLEDragMode` 0, where the
    /// program starts the drags).
    void OLEDrag() { m_control->OLEDrag(); }
    /// Opens the about box modally (or calls the handler of `SetAboutBoxHandler`).
    void ShowAboutBox() { m_control->ShowAboutBox(); }

    /// The field's rules as a form file holds them: a JSON object of the entries the control writes for its
    /// own properties (every property but the edit box's), each as people write it (constants by name,
    /// dates and times as ISO text, the two lists as arrays), entries at their default left out. See
    /// `EntriesToJson`. Rules in the older type-tagged notation still load.
    [[nodiscard]] QString rules() const;
    /// Loads the rules of a text in the notation of `rules()` as a form loads the field: every rule not in
    /// the text takes its default, the type is set first, the lists are taken even at run time, and the text
    /// is set again last so that the type and the last valid value are derived from it; the edit box's
    /// properties keep their values. Returns the empty string on success; otherwise one line saying what is
    /// wrong (not JSON, an entry that is not a rule, a value its property refuses), and the field is
    /// unchanged.
    [[nodiscard]] QString LoadRules(const QString& text);
    /// The writer of the `rules` property: `LoadRules`, with a refused text reported as a Qt warning
    /// instead of thrown, because Designer and `uic` code write it.
    void setRules(const QString& text);

    /// The edit box's size hints, which the field takes for its own.
    ///@{
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    ///@}

    // Properties: the control's readers and writers. A writer refuses, as described above, what the control
    // refuses (a value out of range, a list written at run time), a number of the edit box's outside the
    // values it has (`Alignment` 0 to 2, `Appearance`, `BorderStyle`, `MousePointer` 0 to 15 or 99, the
    // drag and drop modes), a count of decimals above 32 (which the control would keep), and a
    // `DefaultValue`, `MinValue` or `MaxValue` that the field's type cannot take (which the control ignores
    // silently). A value that Qt cannot convert to the property's type never reaches the field: `setProperty`
    // returns false. Each enumerated property is written in its enumeration type or, for generic callers, as
    // an int.
    /// \copydoc quillmar::Quillmar::ThousandSeparator()
    ///@{
    [[nodiscard]] ThousandSeparatorConstants ThousandSeparator() const {
        return m_control->ThousandSeparator();
    }
    void SetThousandSeparator(ThousandSeparatorConstants value);
    void SetThousandSeparator(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::MustBePositive()
    ///@{
    [[nodiscard]] bool MustBePositive() const { return m_control->MustBePositive(); }
    void SetMustBePositive(bool value) { m_control->SetMustBePositive(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::MustBeNegative()
    ///@{
    [[nodiscard]] bool MustBeNegative() const { return m_control->MustBeNegative(); }
    void SetMustBeNegative(bool value) { m_control->SetMustBeNegative(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::Beeping()
    ///@{
    [[nodiscard]] bool Beeping() const { return m_control->Beeping(); }
    void SetBeeping(bool value) { m_control->SetBeeping(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::MustBeUpperCase()
    ///@{
    [[nodiscard]] bool MustBeUpperCase() const { return m_control->MustBeUpperCase(); }
    void SetMustBeUpperCase(bool value) { m_control->SetMustBeUpperCase(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::MustBeLowerCase()
    ///@{
    [[nodiscard]] bool MustBeLowerCase() const { return m_control->MustBeLowerCase(); }
    void SetMustBeLowerCase(bool value) { m_control->SetMustBeLowerCase(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::MustBeProperCase()
    ///@{
    [[nodiscard]] bool MustBeProperCase() const { return m_control->MustBeProperCase(); }
    void SetMustBeProperCase(bool value) { m_control->SetMustBeProperCase(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::NoDigits()
    ///@{
    [[nodiscard]] bool NoDigits() const { return m_control->NoDigits(); }
    void SetNoDigits(bool value) { m_control->SetNoDigits(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::OnlyLetters()
    ///@{
    [[nodiscard]] bool OnlyLetters() const { return m_control->OnlyLetters(); }
    void SetOnlyLetters(bool value) { m_control->SetOnlyLetters(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::OnlyLettersWithSpace()
    ///@{
    [[nodiscard]] bool OnlyLettersWithSpace() const { return m_control->OnlyLettersWithSpace(); }
    void SetOnlyLettersWithSpace(bool value) { m_control->SetOnlyLettersWithSpace(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::AllowScientificFormat()
    ///@{
    [[nodiscard]] bool AllowScientificFormat() const { return m_control->AllowScientificFormat(); }
    void SetAllowScientificFormat(bool value) { m_control->SetAllowScientificFormat(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::FinalValidationActive()
    ///@{
    [[nodiscard]] bool FinalValidationActive() const { return m_control->FinalValidationActive(); }
    void SetFinalValidationActive(bool value) { m_control->SetFinalValidationActive(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::ValidCharactersSet()
    ///@{
    [[nodiscard]] QString ValidCharactersSet() const { return ToQString(m_control->ValidCharactersSet()); }
    void SetValidCharactersSet(const QString& value) { m_control->SetValidCharactersSet(FromQString(value)); }
    ///@}
    /// \copydoc quillmar::Quillmar::ExtraExcludedCharacters()
    ///@{
    [[nodiscard]] QString ExtraExcludedCharacters() const {
        return ToQString(m_control->ExtraExcludedCharacters());
    }
    void SetExtraExcludedCharacters(const QString& value) {
        m_control->SetExtraExcludedCharacters(FromQString(value));
        ///@}
    }
    /// \copydoc quillmar::Quillmar::ExtraIncludedCharacters()
    ///@{
    [[nodiscard]] QString ExtraIncludedCharacters() const {
        return ToQString(m_control->ExtraIncludedCharacters());
    }
    void SetExtraIncludedCharacters(const QString& value) {
        m_control->SetExtraIncludedCharacters(FromQString(value));
        ///@}
    }
    /// \copydoc quillmar::Quillmar::RequiredField()
    ///@{
    [[nodiscard]] bool RequiredField() const { return m_control->RequiredField(); }
    void SetRequiredField(bool value) { m_control->SetRequiredField(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::MaxNumberOfDecimals()
    ///@{
    [[nodiscard]] int MaxNumberOfDecimals() const { return m_control->MaxNumberOfDecimals(); }
    void SetMaxNumberOfDecimals(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::CustomMask()
    ///@{
    [[nodiscard]] QString CustomMask() const { return ToQString(m_control->CustomMask()); }
    void SetCustomMask(const QString& value) { m_control->SetCustomMask(FromQString(value)); }
    ///@}
    /// \copydoc quillmar::Quillmar::DefaultValue()
    ///@{
    [[nodiscard]] QVariant DefaultValue() const {
        return ToQVariant(m_control->DefaultValue(), MustBeType());
    }
    void SetDefaultValue(const QVariant& value);
    ///@}
    /// \copydoc quillmar::Quillmar::MinValue()
    ///@{
    [[nodiscard]] QVariant MinValue() const { return ToQVariant(m_control->MinValue(), MustBeType()); }
    void SetMinValue(const QVariant& value);
    ///@}
    /// \copydoc quillmar::Quillmar::MaxValue()
    ///@{
    [[nodiscard]] QVariant MaxValue() const { return ToQVariant(m_control->MaxValue(), MustBeType()); }
    void SetMaxValue(const QVariant& value);
    ///@}
    /// \copydoc quillmar::Quillmar::MustNotBeZero()
    ///@{
    [[nodiscard]] bool MustNotBeZero() const { return m_control->MustNotBeZero(); }
    void SetMustNotBeZero(bool value) { m_control->SetMustNotBeZero(value); }
    ///@}
    /// The values the field must not hold (slot 0 unused, the values in slots 1 on) and the corrective
    /// actions the final validation tries (slots 1 to 3, one `ActionsConstants` flag word each). The two
    /// lists are design-time properties: at run time (`UserMode`) a read gives an empty list and a write is
    /// refused (382), where the control's own reader throws 393.
    ///@{
    [[nodiscard]] QVariantList MustNotBeValues() const;
    void SetMustNotBeValues(const QVariantList& value);
    [[nodiscard]] QVariantList Actions() const;
    void SetActions(const QVariantList& value);
    ///@}
    /// \copydoc quillmar::Quillmar::ShowErrorMessage()
    ///@{
    [[nodiscard]] bool ShowErrorMessage() const { return m_control->ShowErrorMessage(); }
    void SetShowErrorMessage(bool value) { m_control->SetShowErrorMessage(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::ValidationMode()
    ///@{
    [[nodiscard]] ValidationModeConstants ValidationMode() const { return m_control->ValidationMode(); }
    void SetValidationMode(ValidationModeConstants value);
    void SetValidationMode(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::MessageBoxTitle()
    ///@{
    [[nodiscard]] QString MessageBoxTitle() const { return ToQString(m_control->MessageBoxTitle()); }
    void SetMessageBoxTitle(const QString& value) { m_control->SetMessageBoxTitle(FromQString(value)); }
    ///@}
    /// \copydoc quillmar::Quillmar::ErrorMessageMode()
    ///@{
    [[nodiscard]] ErrorMessageModeConstants ErrorMessageMode() const { return m_control->ErrorMessageMode(); }
    void SetErrorMessageMode(ErrorMessageModeConstants value);
    void SetErrorMessageMode(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::MustBeType()
    ///@{
    [[nodiscard]] MustBeTypeConstants MustBeType() const { return m_control->MustBeType(); }
    void SetMustBeType(MustBeTypeConstants value);
    void SetMustBeType(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::OnErrorSelectEntireField()
    ///@{
    [[nodiscard]] bool OnErrorSelectEntireField() const { return m_control->OnErrorSelectEntireField(); }
    void SetOnErrorSelectEntireField(bool value) { m_control->SetOnErrorSelectEntireField(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::InputSifting()
    ///@{
    [[nodiscard]] InputSiftingConstants InputSifting() const { return m_control->InputSifting(); }
    void SetInputSifting(InputSiftingConstants value);
    void SetInputSifting(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::MaxRelativeAccuracy()
    ///@{
    [[nodiscard]] int MaxRelativeAccuracy() const { return m_control->MaxRelativeAccuracy(); }
    void SetMaxRelativeAccuracy(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::MessageBoxIcon()
    ///@{
    [[nodiscard]] MsgBoxIcons MessageBoxIcon() const { return m_control->MessageBoxIcon(); }
    void SetMessageBoxIcon(MsgBoxIcons value);
    void SetMessageBoxIcon(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::ErrorMessage()
    ///@{
    [[nodiscard]] QString ErrorMessage() const { return ToQString(m_control->ErrorMessage()); }
    void SetErrorMessage(const QString& value) { m_control->SetErrorMessage(FromQString(value)); }
    ///@}
    /// \copydoc quillmar::Quillmar::ShowAsUnderstood()
    ///@{
    [[nodiscard]] bool ShowAsUnderstood() const { return m_control->ShowAsUnderstood(); }
    void SetShowAsUnderstood(bool value) { m_control->SetShowAsUnderstood(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::Text()
    ///@{
    [[nodiscard]] QString Text() const { return ToQString(m_control->Text()); }
    void SetText(const QString& value) { m_control->SetText(FromQString(value)); }
    ///@}
    /// \copydoc quillmar::Quillmar::Value()
    ///@{
    [[nodiscard]] QVariant Value() const { return ToQVariant(m_control->Value(), MustBeType()); }
    void SetValue(const QVariant& value) { m_control->SetValue(FromQVariant(value, MustBeType())); }
    ///@}
    /// \copydoc quillmar::Quillmar::MaxLength()
    ///@{
    [[nodiscard]] int MaxLength() const { return m_control->MaxLength(); }
    void SetMaxLength(int value) { m_control->SetMaxLength(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::SelStart()
    ///@{
    [[nodiscard]] int SelStart() const { return m_control->SelStart(); }
    void SetSelStart(int value) { m_control->SetSelStart(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::SelLength()
    ///@{
    [[nodiscard]] int SelLength() const { return m_control->SelLength(); }
    void SetSelLength(int value) { m_control->SetSelLength(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::SelText()
    ///@{
    [[nodiscard]] QString SelText() const { return ToQString(m_control->SelText()); }
    void SetSelText(const QString& value) { m_control->SetSelText(FromQString(value)); }
    ///@}
    /// \copydoc quillmar::Quillmar::Alignment()
    ///@{
    [[nodiscard]] int Alignment() const { return m_control->Alignment(); }
    /// 0 left, 1 right, 2 centre.
    void SetAlignment(int value);
    /// The horizontal part of a Qt alignment: `Qt::AlignRight` (or trailing) right, `Qt::AlignHCenter`
    /// centre, anything else left; the vertical part is the edit box's own.
    void SetAlignment(Qt::Alignment value);
    void SetAlignment(Qt::AlignmentFlag value) { SetAlignment(Qt::Alignment(value)); }
    ///@}
    /// The alignment as a Qt alignment: left, right or centre, vertically centred.
    [[nodiscard]] Qt::Alignment QtAlignment() const;
    /// \copydoc quillmar::Quillmar::Appearance()
    ///@{
    [[nodiscard]] vldAppearanceConstants Appearance() const {
        return static_cast<vldAppearanceConstants>(m_control->Appearance());
    }
    void SetAppearance(vldAppearanceConstants value);
    void SetAppearance(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::BorderStyle()
    ///@{
    [[nodiscard]] vldBorderStyleConstants BorderStyle() const {
        return static_cast<vldBorderStyleConstants>(m_control->BorderStyle());
    }
    void SetBorderStyle(vldBorderStyleConstants value);
    void SetBorderStyle(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::Locked()
    ///@{
    [[nodiscard]] bool Locked() const { return m_control->Locked(); }
    void SetLocked(bool value) { m_control->SetLocked(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::PasswordChar()
    ///@{
    [[nodiscard]] QString PasswordChar() const { return ToQString(m_control->PasswordChar()); }
    void SetPasswordChar(const QString& value) { m_control->SetPasswordChar(FromQString(value)); }
    ///@}
    /// \copydoc quillmar::Quillmar::RightToLeft()
    ///@{
    [[nodiscard]] bool RightToLeft() const { return m_control->RightToLeft(); }
    void SetRightToLeft(bool value) { m_control->SetRightToLeft(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::MousePointer()
    ///@{
    [[nodiscard]] int MousePointer() const { return m_control->MousePointer(); }
    void SetMousePointer(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::FontBold()
    ///@{
    [[nodiscard]] bool FontBold() const { return m_control->FontBold(); }
    void SetFontBold(bool value) { m_control->SetFontBold(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::FontItalic()
    ///@{
    [[nodiscard]] bool FontItalic() const { return m_control->FontItalic(); }
    void SetFontItalic(bool value) { m_control->SetFontItalic(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::FontUnderline()
    ///@{
    [[nodiscard]] bool FontUnderline() const { return m_control->FontUnderline(); }
    void SetFontUnderline(bool value) { m_control->SetFontUnderline(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::FontStrikethru()
    ///@{
    [[nodiscard]] bool FontStrikethru() const { return m_control->FontStrikethru(); }
    void SetFontStrikethru(bool value) { m_control->SetFontStrikethru(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::FontSize()
    ///@{
    [[nodiscard]] float FontSize() const { return m_control->FontSize(); }
    void SetFontSize(float value) { m_control->SetFontSize(value); }
    ///@}
    /// \copydoc quillmar::Quillmar::OLEDragMode()
    ///@{
    [[nodiscard]] int OLEDragMode() const { return m_control->OLEDragMode(); }
    void SetOLEDragMode(int value);
    ///@}
    /// \copydoc quillmar::Quillmar::OLEDropMode()
    ///@{
    [[nodiscard]] int OLEDropMode() const { return m_control->OLEDropMode(); }
    void SetOLEDropMode(int value);
    ///@}
    /// The field's enabled state, one with the widget's own (`QWidget::setEnabled`): setting either sets the
    /// other. A disabled parent greys the field without changing it, as for any widget.
    ///@{
    [[nodiscard]] bool Enabled() const { return m_control->Enabled(); }
    void SetEnabled(bool value) { m_control->SetEnabled(value); }
    ///@}
    /// The colours (OLE colours: 0x00BBGGRR, or a system colour with the high bit set) and the font face
    /// the edit box draws with. Unlike the control's writers, which leave them to a loaded form, these
    /// writers change what is drawn and announce the change.
    ///@{
    [[nodiscard]] uint BackColor() const { return m_control->BackColor(); }
    void SetBackColor(uint value);
    [[nodiscard]] uint ForeColor() const { return m_control->ForeColor(); }
    void SetForeColor(uint value);
    [[nodiscard]] QString FontName() const { return ToQString(m_control->FontName()); }
    void SetFontName(const QString& value);
    ///@}
    /// A number unique to this field's edit box among the live ones (the form's window handle of it).
    [[nodiscard]] int hwnd() const { return m_control->hwnd(); }
    /// \copydoc quillmar::Quillmar::HideSelection()
    [[nodiscard]] bool HideSelection() const { return m_control->HideSelection(); }
signals:
    /// A property changed (its name), as a designer needs to know.
    void PropertyChanged(const QString& name);
    /// A writer refused `value` for the property `name` and left the property as it was; `error` is the
    /// control's number (380 invalid value, 382 list written at run time, 393 list read at run time).
    void PropertyRefused(const QString& name, const QVariant& value, int error);
    /// `IsValid` changed: the text was typed, pasted or written, or a rule or the locale changed. A dialog
    /// enables its OK button from it.
    void ValidityChanged(bool valid);
    /// The edit box's events, raised to the form before the field acts on them, with the arguments of
    /// `quillmar::QuillmarEvents`' methods of the same names. A slot connected directly (not queued) may
    /// change the arguments passed by reference: set `KeyAscii` to 0 to cancel a character, change
    /// `Effect` to refuse a drop.
    ///@{
    void OLEStartDrag(quillmar::DataObject& Data, qint32& AllowedEffects);
    void OLESetData(quillmar::DataObject& Data, qint16& DataFormat);
    void OLEGiveFeedback(qint32& Effect, bool& DefaultCursors);
    void OLEDragOver(quillmar::DataObject& Data, qint32& Effect, qint16& Button, qint16& Shift, float& X,
        float& Y, qint16& State);
    void OLEDragDrop(
        quillmar::DataObject& Data, qint32& Effect, qint16& Button, qint16& Shift, float& X, float& Y);
    void OLECompleteDrag(qint32& Effect);
    void KeyDown(qint16& KeyCode, qint16& Shift);
    void KeyPress(qint16& KeyAscii);
    void KeyUp(qint16& KeyCode, qint16& Shift);
    void MouseDown(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseMove(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseUp(qint16& Button, qint16& Shift, float& X, float& Y);
    void Click();
    void DblClick();
    void Change();
    ///@}
    /// The focus is about to leave the field for another widget of the form, before the field's own final
    /// validation. A slot that sets Cancel keeps the focus in the field, and the field's focus exit does not
    /// run (the container's validate-before-leaving). Focus that only passed through the field, on its way
    /// back to another field that refused to be left, is no leave: neither this nor the final validation
    /// runs.
    void BeforeLeaving(bool& Cancel);

protected:
    /// Keep the field in step with the widget: the widget's own enabled state reaches the control (a parent
    /// that greys it does not), a resize the control's surface (`Resize`), a show the edit box's tool tip
    /// and accessible name (`Show`).
    ///@{
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    ///@}

private:
    friend class QtServices;
    /// Runs the control's writer `write`; a `PropertyError` it throws is reported as a refusal of `value`.
    template <typename Write> void Guarded(const char* name, const QVariant& value, Write&& write);
    /// Runs `write` when the property's table row admits `value`; refuses it otherwise.
    template <typename Write> void InRangeOnly(const char* name, int value, Write&& write);
    /// Reports a refused value: the warning and `PropertyRefused`.
    void Refuse(const char* name, const QVariant& value, int error, const char* why);
    /// Emits `ValidityChanged` when `IsValid` is no longer what it was.
    void UpdateValidity();
    std::unique_ptr<QtServices> m_services;
    std::unique_ptr<Quillmar> m_control;
    FieldHints* m_hints = nullptr;
    bool m_valid = true;
};

} // namespace quillmar::qt
