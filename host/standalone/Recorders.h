#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/host/Host.h>
#include <quillmar/host/QuillmarEvents.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::standalone {

/// A container that records every PropertyChanged notification and every request for the focus.
class QUILLMAR_CORE_EXPORT RecordingContainer final : public Container {
public:
    void PropertyChanged(std::u16string_view name) override { notifications.emplace_back(name); }
    [[nodiscard]] bool UserMode() const override { return userMode; }
    [[nodiscard]] FontDesc AmbientFont() const override { return ambientFont; }
    [[nodiscard]] std::optional<std::u16string> ExtenderName() const override { return name; }
    [[nodiscard]] std::optional<std::u16string> ExtenderToolTipText() const override { return toolTipText; }
    [[nodiscard]] bool ExtenderVisible() const override { return visible; }
    void SetFocus() override { ++focusRequests; }
    void SetWidth(int32_t w) override { width = w; }
    void SetHeight(int32_t h) override { height = h; }

    bool userMode = true; ///< What `UserMode` answers: true while the form runs.
    FontDesc ambientFont; ///< What `AmbientFont` answers.
    std::optional<std::u16string> name = u"Quillmar1"; ///< What `ExtenderName` answers.
    std::optional<std::u16string> toolTipText; ///< What `ExtenderToolTipText` answers.
    bool visible = true; ///< What `ExtenderVisible` answers.
    std::vector<std::u16string> notifications; ///< The names of the changed properties, in order.
    int focusRequests = 0; ///< How often the control asked for the focus.
    /// The size the control last gave itself (0 until it did).
    ///@{
    int32_t width = 0;
    int32_t height = 0;
    ///@}
};

/// One message box as it was shown.
struct ShownMessage {
    std::u16string text; ///< The message, lines separated by a carriage return and a line feed.
    std::u16string title; ///< The box's title.
    int16_t icon = 0; ///< The icon, a `MessageBoxIconFlag`.
    /// Two messages are equal when text, title and icon are.
    friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

/// Beeps, message boxes and questions, counted and recorded instead of shown; questions take their answers
/// from a script.
class QUILLMAR_CORE_EXPORT RecordingAlerts final : public Alerts {
public:
    void Beep() override { ++beeps; }
    void MessageBox(std::u16string_view text, std::u16string_view title, int16_t icon) override {
        messages.push_back({ std::u16string(text), std::u16string(title), icon });
    }
    /// Records the question and answers with the first scripted answer left, Cancel when none is.
    Answer Question(std::u16string_view text, std::u16string_view title, int16_t icon) override;

    int beeps = 0; ///< How often the control beeped.
    std::vector<ShownMessage> messages; ///< The message boxes shown, in order.
    std::vector<ShownMessage> questions; ///< The questions asked, in order.
    /// The answers the next questions get, in order.
    std::vector<Answer> answers;
};

/// A locale fixed by name (or taken from the process environment).
class QUILLMAR_CORE_EXPORT FixedLocale final : public LocaleSource {
public:
    /// The process environment's locale.
    FixedLocale()
        : m_info(LocaleInfo::FromEnvironment()) { }
    /// The given locale.
    explicit FixedLocale(LocaleInfo info)
        : m_info(std::move(info)) { }
    /// The locale this source was given last.
    [[nodiscard]] LocaleInfo Locale() const override { return m_info; }
    /// Switches the locale: the control reads and writes in it from its next use on.
    void Set(LocaleInfo info) { m_info = std::move(info); }

private:
    LocaleInfo m_info;
};

/// An about box that only counts how often it was opened.
class QUILLMAR_CORE_EXPORT CountingAboutBox final : public AboutBox {
public:
    void Show() override { ++shown; }
    int shown = 0; ///< How often the about box was opened.
};

/// The events raised to the form, recorded in order as short texts with their arguments ("Change",
/// "KeyPress 65", "MouseUp 1 0 14 5").
class QUILLMAR_CORE_EXPORT RecordingEvents : public QuillmarEvents {
public:
    void OLEStartDrag(DataObject& data, int32_t& allowedEffects) override;
    void OLESetData(DataObject& data, int16_t& dataFormat) override;
    void OLEGiveFeedback(int32_t& effect, bool& defaultCursors) override;
    void OLEDragOver(DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y,
        int16_t& state) override;
    void OLEDragDrop(
        DataObject& data, int32_t& effect, int16_t& button, int16_t& shift, float& x, float& y) override;
    void OLECompleteDrag(int32_t& effect) override;
    void KeyDown(int16_t& keyCode, int16_t& shift) override;
    void KeyPress(int16_t& keyAscii) override;
    void KeyUp(int16_t& keyCode, int16_t& shift) override;
    void MouseDown(int16_t& button, int16_t& shift, float& x, float& y) override;
    void MouseMove(int16_t& button, int16_t& shift, float& x, float& y) override;
    void MouseUp(int16_t& button, int16_t& shift, float& x, float& y) override;
    void Click() override { log.emplace_back("Click"); }
    void DblClick() override { log.emplace_back("DblClick"); }
    void Change() override { log.emplace_back("Change"); }

    /// The entries of the log that start with the given event name.
    [[nodiscard]] std::vector<std::string> Only(std::string_view event) const;

    std::vector<std::string> log; ///< Every event raised, in order ("KeyPress 65").
};

} // namespace quillmar::standalone
