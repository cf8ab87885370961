#include "i18n/QuillmarTranslations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QString>
#include <QTranslator>

#include <memory>
#include <set>
#include <vector>

namespace quillmar {
namespace {

class TranslatedCatalogue final : public MessageCatalogue {
public:
    [[nodiscard]] std::u16string Template(MessageId id) const override {
        const MessageText& source = MessageSource(id);
        const QString text = QCoreApplication::translate(source.context, source.english);
        return std::u16string(
            reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size()));
    }
};

// A catalogue with a translation of its own, not one installed in the application.
class OwnTranslationCatalogue final : public MessageCatalogue {
public:
    explicit OwnTranslationCatalogue(std::unique_ptr<QTranslator> translator)
        : m_translator(std::move(translator)) { }
    [[nodiscard]] std::u16string Template(MessageId id) const override {
        const MessageText& source = MessageSource(id);
        QString text = m_translator->translate(source.context, source.english);
        if (text.isEmpty()) text = QString::fromUtf8(source.english);
        return std::u16string(
            reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size()));
    }

private:
    std::unique_ptr<QTranslator> m_translator;
};

// Each library embeds its compiled translations under this folder as "<library>_<language>.qm".
const QString kFolder = QStringLiteral(":/i18n/quillmar");

std::vector<std::unique_ptr<QTranslator>>& Installed() {
    static std::vector<std::unique_ptr<QTranslator>> installed;
    return installed;
}

std::unique_ptr<QTranslator>& InstalledQt() {
    static std::unique_ptr<QTranslator> installed;
    return installed;
}

} // namespace

const MessageCatalogue& TranslatedMessages() {
    static const TranslatedCatalogue catalogue;
    return catalogue;
}

std::shared_ptr<const MessageCatalogue> MessagesFor(const QLocale& locale) {
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(locale, QStringLiteral("control"), QStringLiteral("_"), kFolder))
        return std::make_shared<EnglishCatalogue>();
    return std::make_shared<OwnTranslationCatalogue>(std::move(translator));
}

int InstallTranslations(const QLocale& locale) {
    for (const std::unique_ptr<QTranslator>& translator : Installed())
        QCoreApplication::removeTranslator(translator.get());
    Installed().clear();

    std::set<QString> libraries;
    for (const QString& file : QDir(kFolder).entryList({ QStringLiteral("*.qm") }, QDir::Files))
        libraries.insert(file.left(file.indexOf(QLatin1Char('_'))));
    for (const QString& library : libraries) {
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(locale, library, QStringLiteral("_"), kFolder)) continue;
        if (QCoreApplication::installTranslator(translator.get()))
            Installed().push_back(std::move(translator));
    }
    return static_cast<int>(Installed().size());
}

bool InstallQtTranslation(const QLocale& locale) {
    if (InstalledQt()) QCoreApplication::removeTranslator(InstalledQt().get());
    InstalledQt().reset();
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return false;
    if (!QCoreApplication::installTranslator(translator.get())) return false;
    InstalledQt() = std::move(translator);
    return true;
}

} // namespace quillmar
