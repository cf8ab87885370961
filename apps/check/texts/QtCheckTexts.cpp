// The translations module of quillmar-check: its report's texts and the fields' messages in the languages
// the product ships, through Qt's translations. The program loads it only for a language other than English,
// so a check in English never loads Qt.
#include "apps/check/CheckTexts.h"
#include "i18n/QuillmarTranslations.h"

#include <QLocale>
#include <QString>
#include <QTranslator>

#include <type_traits>

namespace quillmar::check {
namespace {

class QtCheckTexts final : public CheckTexts {
public:
    QtCheckTexts(std::unique_ptr<QTranslator> report, std::shared_ptr<const MessageCatalogue> messages)
        : m_report(std::move(report))
        , m_messages(std::move(messages)) { }

    [[nodiscard]] const MessageCatalogue& Messages() const override { return *m_messages; }

    [[nodiscard]] std::string Text(
        const char* english, std::span<const std::string_view> args) const override {
        const QString translated = m_report ? m_report->translate("quillmar-check", english) : QString();
        const std::string pattern = translated.isEmpty() ? std::string(english) : translated.toStdString();
        return FillPlaceholders<char>(pattern, args);
    }

private:
    std::unique_ptr<QTranslator> m_report;
    std::shared_ptr<const MessageCatalogue> m_messages;
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
