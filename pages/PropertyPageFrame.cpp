#include "pages/PropertyPageFrame.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace quillmar::pages {

PropertyPageFrame::PropertyPageFrame(Alerts& alerts, const Clock& clock, QWidget* parent)
    : QDialog(parent)
    , m_alerts(&alerts)
    , m_clock(&clock) {
    setWindowTitle(tr("Property Pages"));
    setModal(true);
    m_tabs = new QTabWidget(this);
    auto* buttons = new QDialogButtonBox(this);
    m_ok = buttons->addButton(QDialogButtonBox::Ok);
    m_cancel = buttons->addButton(QDialogButtonBox::Cancel);
    m_apply = buttons->addButton(QDialogButtonBox::Apply);
    // Cancel does not take the focus, so that leaving a half-typed entry field for it raises no message.
    m_cancel->setFocusPolicy(Qt::TabFocus);
    m_ok->setDefault(false);
    m_ok->setAutoDefault(false);
    m_apply->setAutoDefault(false);
    m_cancel->setAutoDefault(false);
    m_apply->setEnabled(false);
    connect(m_ok, &QPushButton::clicked, this, [this] {
        if (Apply()) accept();
    });
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_apply, &QPushButton::clicked, this, [this] { Apply(); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);
}

PropertyPageFrame::PropertyPageFrame(QWidget* parent)
    : PropertyPageFrame(std::make_unique<qt::QtAlerts>(), std::make_unique<SystemClock>(), parent) { }

PropertyPageFrame::PropertyPageFrame(
    std::unique_ptr<qt::QtAlerts> alerts, std::unique_ptr<SystemClock> clock, QWidget* parent)
    : PropertyPageFrame(*alerts, *clock, parent) {
    alerts->SetParent(this);
    m_ownAlerts = std::move(alerts);
    m_ownClock = std::move(clock);
}

PropertyPageFrame::~PropertyPageFrame() = default;

void PropertyPageFrame::AddPage(PropertyPage* page) {
    page->SetSelection(&m_selection);
    m_pages.push_back(page);
    m_tabs->addTab(page, page->Caption());
    connect(page, &PropertyPage::ChangedChanged, this, &PropertyPageFrame::UpdateApply);
    // A field that refuses to be left keeps the focus, and its page stays in sight with it (also when the
    // author chose another tab to leave the field).
    connect(page, &PropertyPage::KeepsFocus, this, [this, page] { m_tabs->setCurrentWidget(page); });
}

void PropertyPageFrame::SetSelectedControls(const QList<qt::QuillmarEdit*>& fields) {
    m_selection = SelectedControls(fields);
    // The title says which field the pages edit, as the author picked it in the designer.
    if (fields.size() == 1 && fields.first())
        setWindowTitle(tr("Properties of %1").arg(fields.first()->objectName()));
    else
        setWindowTitle(tr("Properties of %n fields", nullptr, static_cast<int>(fields.size())));
    for (PropertyPage* page : m_pages)
        page->SelectionChanged();
    UpdateApply();
}

bool PropertyPageFrame::Apply() {
    PropertyPage* firstRefused = nullptr;
    bool applied = false;
    for (PropertyPage* page : m_pages) {
        if (!page->Changed()) continue;
        // A page that refuses marks itself Changed again.
        page->SetChanged(false);
        page->ForgetFocus();
        page->ApplyChanges();
        applied = true;
        if (page->Changed() && !firstRefused) firstRefused = page;
    }
    UpdateApply();
    if (!firstRefused) {
        // Every page loads what the fields now hold, so that each offers what the applied settings offer
        // (the limits of a type just applied ...). After a refusal the pages keep what the author typed.
        if (applied)
            for (PropertyPage* page : m_pages)
                page->Reload();
        return true;
    }
    m_tabs->setCurrentWidget(firstRefused);
    firstRefused->RestoreFocus();
    return false;
}

void PropertyPageFrame::UpdateApply() {
    bool anyChanged = false;
    for (const PropertyPage* page : m_pages)
        anyChanged = anyChanged || page->Changed();
    m_apply->setEnabled(anyChanged);
}

} // namespace quillmar::pages
