// The translations module of quillmar-check: its report's texts and the fields' messages in the languages
// the product ships, through Qt's translations. The program loads it only for a language other than English,
// so a check in English never loads Qt.
#include "apps/check/CheckTexts.h"
#include "i18n/QuillmarTranslations.h"

#include <QLocale>
#include <QString>
#include <QTranslator>

#include <mutex>
#include <type_traits>

namespace quillmar::check {
namespace {

// The checking threads compose messages at once, and a translator promises nothing of calls from two threads
// on one object: each text is looked up under a lock, which few texts take (a message is composed once per
// chunk for each field and set of broken rules).
class QtCheckTexts final : public CheckTexts, private MessageCatalogue {
public:
    QtCheckTexts(std::unique_ptr<QTranslator> report, std::shared_ptr<const MessageCatalogue> messages)
        : m_report(std::move(report))
        , m_messages(std::move(messages)) { }

    [[nodiscard]] const MessageCatalogue& Messages() const override { return *this; }

    [[nodiscard]] std::string Text(
        const char* english, std::span<const std::string_view> args) const override {
        std::string pattern = english;
        if (m_report) {
            const std::lock_guard lock(m_mutex);
            const QString translated = m_report->translate("quillmar-check", english);
            if (!translated.isEmpty()) pattern = translated.toStdString();
        }
        return FillPlaceholders<char>(pattern, args);
    }

private:
    [[nodiscard]] std::u16string Template(MessageId id) const override {
        const std::lock_guard lock(m_mutex);
        return m_messages->Template(id);
    }

    std::unique_ptr<QTranslator> m_report;
    std::shared_ptr<const MessageCatalogue> m_messages;
    mutable std::mutex m_mutex;
};

} // namespace
} // namespace quillmar::check

extern "C" Q_DECL_EXPORT const quillmar::check::CheckTexts* quillmar_check_texts(const char* locale) {
    using namespace quillmar::check;
    const QLocale qtLocale(QString::fromUtf8(locale));
    auto report = std::make_unique<QTranslator>();
    const bool reportTranslated = report->load(
        qtLocale, QStringLiteral("check"), QStringLiteral("_"), QStringLiteral(":/i18n/quillmar"));
    if (!reportTranslated) report.reset();
    auto messages = quillmar::MessagesFor(qtLocale);
    return new QtCheckTexts(std::move(report), std::move(messages));
}

static_assert(std::is_same_v<decltype(&quillmar_check_texts), quillmar::check::CheckTextsFactory>,
    "the module's entry point is the one the program looks up");
