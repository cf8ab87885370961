#include "pages/PropertyPage.h"

#include "base/ListEncoding.h"

#include <QLocale>

#include <QTime>
#include <algorithm>

namespace quillmar::pages {

int SystemClock::SecondsOfDay() const {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000;
}

LocaleInfo PageServices::Locale() const {
    return LocaleInfo::FromName((localeName.isEmpty() ? QLocale::system().name() : localeName).toStdString());
}

PropertyPage::PropertyPage(const QString& caption, PageServices services, QWidget* parent)
    : QWidget(parent)
    , m_caption(caption)
    , m_services(services) { }

const SelectedControls& PropertyPage::Selection() const {
    static const SelectedControls none;
    return m_selection ? *m_selection : none;
}

void PropertyPage::SetChanged(bool changed) {
    if (changed == m_changed) return;
    m_changed = changed;
    emit ChangedChanged(changed);
}

qt::QuillmarEdit* PropertyPage::FirstControl() const {
    return Selection().Item(0);
}

void PropertyPage::ForEachSelected(const std::function<void(Quillmar&)>& write, bool firstOnly) const {
    const int count = firstOnly ? std::min(1, Selection().Count()) : Selection().Count();
    for (int i = 0; i < count; ++i)
        if (qt::QuillmarEdit* field = Selection().Item(i)) write(field->control());
}

bool PropertyPage::BeginLoad() {
    m_loading = true;
    // Repeated notifications within one second load the page once.
    if (!m_reloading && m_services.clock.SecondsOfDay() == m_lastLoadTime) {
        Beep();
        return false;
    }
    return true;
}

void PropertyPage::EndLoad() {
    m_loading = false;
    if (!m_reloading) m_lastLoadTime = m_services.clock.SecondsOfDay();
}

void PropertyPage::Reload() {
    m_reloading = true;
    SelectionChanged();
    m_reloading = false;
}

void PropertyPage::MarkChanged() {
    if (!m_loading) SetChanged(true);
}

void PropertyPage::FocusField(QWidget* field, bool selectAll) {
    m_focusField = field;
    m_focusSelectAll = selectAll;
    RestoreFocus();
}

void PropertyPage::RestoreFocus() {
    if (!m_focusField) return;
    m_focusField->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<qt::QuillmarEdit*>(m_focusField.data()); edit && m_focusSelectAll) {
        edit->SetSelStart(0);
        edit->SetSelLength(static_cast<int>(edit->Text().size()));
    }
}

void PropertyPage::Beep() {
    m_services.alerts.Beep();
}

void PropertyPage::ShowMessage(const QString& text, const QString& title, int icon) {
    m_services.alerts.MessageBox(qt::FromQString(text), qt::FromQString(title), static_cast<int16_t>(icon));
}

Answer PropertyPage::Ask(const QString& text, const QString& title, int icon) {
    return m_services.alerts.Question(
        qt::FromQString(text), qt::FromQString(title), static_cast<int16_t>(icon));
}

qt::QuillmarEdit* PropertyPage::MakeEmbeddedField(
    const QString& name, const std::vector<quillmar::PropertyEntry>& entries) {
    auto* field = new qt::QuillmarEdit(this);
    field->setObjectName(name);
    field->SetLocaleName(m_services.localeName);
    quillmar::MemoryPropertyStore store;
    for (const quillmar::PropertyEntry& entry : entries)
        store.WriteProperty(entry.key, entry.value, Variant());
    field->control().ReadProperties(store);
    Alerts& alerts = m_services.alerts;
    field->SetBeepHandler([&alerts] { alerts.Beep(); });
    field->SetMessageBoxHandler([&alerts](const QString& text, const QString& title, int icon) {
        // The field hands over its lines broken by "\n" alone; the services take the system's line breaks.
        QString message = text;
        message.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
        alerts.MessageBox(qt::FromQString(message), qt::FromQString(title), static_cast<int16_t>(icon));
    });
    connect(field, &qt::QuillmarEdit::BeforeLeaving, this, [this, field](bool& cancel) {
        if (field->isEnabled()) cancel = !field->Validate();
        if (cancel) emit KeepsFocus();
    });
    return field;
}

Variant StoredList(const VariantArray& items) {
    VariantArray list(1);
    list.insert(list.end(), items.begin(), items.end());
    return Variant(EncodeList(list));
}

} // namespace quillmar::pages
