#include "i18n/QuillmarTranslations.h"
#include "input/Refusal.h"
#include "support/QtApplication.h"
#include "validation/Describe.h"
#include "validation/Messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>

namespace quillmar {
namespace {

const LocaleInfo& Us() {
    static const LocaleInfo us = LocaleInfo::FromName("en_US");
    return us;
}
const LocaleInfo& De() {
    static const LocaleInfo de = LocaleInfo::FromName("de_DE");
    return de;
}

Settings Field(MustBeTypeConstants type, std::u16string min = {}, std::u16string max = {}) {
    Settings s;
    s.MustBeType = type;
    s.ErrorMessageMode = vldAutoAdvanced;
    s.MinValue = std::move(min);
    s.MaxValue = std::move(max);
    return s;
}

// The settings with the rules `declare` adds.
Settings With(Settings s, const std::function<void(Settings&)>& declare) {
    declare(s);
    return s;
}

using Compose = std::function<std::u16string(const MessageCatalogue&)>;

// The message box's text for a field holding `text` that breaks `bits`, composed through a catalogue.
Compose Message(std::u16string text, int32_t bits, int32_t action, Settings s, const LocaleInfo& locale,
    int32_t maxLength = 0) {
    return [=, &locale](const MessageCatalogue& c) {
        return ComposeErrorMessage(text, bits, action, s, locale, maxLength, c);
    };
}

// The rules in words, as the field describes them to assistive technology.
Compose Described(Settings s, int32_t maxLength = 0) {
    return [=](const MessageCatalogue& c) { return DescribeRules(s, Us(), maxLength, c); };
}

// The tip for a refused key or paste.
Compose Tip(Refusal refusal, Settings s, const LocaleInfo& locale) {
    return [=, &locale](const MessageCatalogue& c) { return RefusalText(refusal, s, locale, c); };
}

// One row per rule family, corrective action, description, placeholder and tip: its text composed through a
// catalogue, in English and in German. The values shown are the author's and the locale's, never translated.
struct MessageRow {
    const char* name;
    Compose compose;
    std::u16string english;
    std::u16string german;
};

const std::vector<MessageRow>& Rows() {
    static const std::vector<MessageRow> rows {
        { "required", Message(u"", vldCCRequiredField, 0, Field(vldInteger), Us()),
            u"This field is required.", u"Dieses Feld muss ausgefüllt werden." },
        { "integer range, closest value",
            Message(u"500", vldCCMaxValue, vldACInsertClosest, Field(vldInteger, u"1", u"100"), Us()),
            u"An integer between 1 and 100 is required.\r\nClosest value inserted.",
            u"Eine ganze Zahl zwischen 1 und 100 ist erforderlich.\r\nDer nächstliegende Wert wurde "
            u"eingesetzt." },
        { "positive number, forbidden zero, previous value",
            Message(u"0", vldCCMustNotBeZero, vldACReturnPrevious,
                With(Field(vldDouble, {}, u"9,5"),
                    [](Settings& s) { s.MustBePositive = s.MustNotBeZero = true; }),
                De()),
            u"A positive number <= 9,5 is required.\r\nValue 0 is not allowed.\r\nPrevious value returned.",
            u"Eine positive Zahl <= 9,5 ist erforderlich.\r\nDer Wert 0 ist nicht zulässig.\r\nDer vorherige "
            u"Wert wurde wiederhergestellt." },
        { "decimals, default value",
            Message(u"1,234", vldCCMaxNumberOfDecimals, vldACInsertDefault,
                With(Field(vldCurrency), [](Settings& s) { s.MaxNumberOfDecimals = 2; }), De()),
            u"Invalid number of decimals. Maximum is 2.\r\nDefault value inserted.",
            u"Ungültige Anzahl Nachkommastellen. Höchstens 2 sind zulässig.\r\nDer Standardwert wurde "
            u"eingesetzt." },
        { "basic number",
            Message(u"x", vldCCMustBeNumber, 0,
                With(Field(vldLong), [](Settings& s) { s.ErrorMessageMode = vldAutoBasic; }), Us()),
            u"Invalid numeric entry.", u"Ungültige Zahleneingabe." },
        { "date after, forbidden date",
            Message(u"24.12.2024", vldCCMustNotBeValues, 0,
                With(Field(vldDate, u"01.01.2000"),
                    [](Settings& s) {
                        s.MustNotBeValues = { Variant(), Variant(u"24.12.2024") };
                    }),
                De()),
            u"A date after 01.01.2000 is required.\r\nDate 24.12.2024 is not allowed.",
            u"Ein Datum nach dem 01.01.2000 ist erforderlich.\r\nDas Datum 24.12.2024 ist nicht zulässig." },
        { "time before", Message(u"18:00", vldCCMaxValue, 0, Field(vldTime, {}, u"17:00"), De()),
            u"A time before 17:00 is required.", u"Eine Uhrzeit vor 17:00 ist erforderlich." },
        { "text rules, forbidden text",
            Message(u"n/a", vldCCOnlyLetters | vldCCMaxLength | vldCCCustomMask | vldCCMustNotBeValues, 0,
                With(Field(vldString),
                    [](Settings& s) {
                        s.CustomMask = u"##";
                        s.MustNotBeValues = { Variant(), Variant(u"n/a") };
                    }),
                Us(), 1),
            u"Invalid text entry.\r\nThis field must be in a form like ##.\r\nOnly letters are "
            u"allowed.\r\nMaximum allowed length of the text is 1 character.\r\n\"n/a\" is not allowed.",
            u"Ungültige Texteingabe.\r\nDieses Feld muss eine Form wie ## haben.\r\nNur Buchstaben sind "
            u"zulässig.\r\nDer Text darf höchstens 1 Zeichen lang sein.\r\n„n/a“ ist nicht zulässig." },
        { "default title", [](const MessageCatalogue& c) { return ShownMessageBoxTitle(Settings(), c); },
            u"Invalid Entry", u"Ungültige Eingabe" },
        { "author's title",
            [](const MessageCatalogue& c) {
                return ShownMessageBoxTitle(
                    With(Settings(), [](Settings& s) { s.MessageBoxTitle = u"Invalid Entry: Quantity"; }), c);
            },
            u"Invalid Entry: Quantity", u"Invalid Entry: Quantity" },
        { "text described",
            Described(With(Settings(),
                          [](Settings& s) {
                              s.OnlyLettersWithSpace = s.MustBeUpperCase = true;
                              s.ExtraIncludedCharacters = u"-";
                          }),
                8),
            u"Letters, spaces and - only, upper case, at most 8 characters",
            u"Nur Buchstaben, Leerzeichen und -, Großbuchstaben, höchstens 8 Zeichen" },
        { "character set described",
            Described(With(Settings(), [](Settings& s) { s.ValidCharactersSet = u"0123456789 +"; })),
            u"Only 0–9 space +", u"Nur 0–9 Leerzeichen +" },
        { "decimals described",
            Described(With(Field(vldSingle, u"-1"), [](Settings& s) { s.MaxNumberOfDecimals = 1; })),
            u"A number >= -1, at most 1 decimal", u"Eine Zahl >= -1, höchstens 1 Nachkommastelle" },
        { "number placeholder",
            [](const MessageCatalogue& c) {
                return PlaceholderText(Field(vldInteger, u"1", u"100"), Us(), 2030, c);
            },
            u"1 – 100", u"1 – 100" },
        { "decimals tip",
            Tip(Refusal::TooManyDecimals,
                With(Field(vldDouble), [](Settings& s) { s.MaxNumberOfDecimals = 2; }), De()),
            u"At most 2 decimals", u"Höchstens 2 Nachkommastellen" },
        { "pasted number tip, the locale's own example",
            Tip(Refusal::PastedNumber,
                With(Field(vldCurrency), [](Settings& s) { s.ThousandSeparator = vldTSAllowed; }), De()),
            u"Numbers here are written like 1.234,50", u"Zahlen werden hier wie 1.234,50 geschrieben" },
        { "letters tip",
            Tip(Refusal::OnlyLetters,
                With(Settings(), [](Settings& s) { s.ExtraIncludedCharacters = u"' "; }), Us()),
            u"Only letters and ' space can be typed here",
            u"Hier sind nur Buchstaben und ' Leerzeichen erlaubt" },
    };
    return rows;
}

class Translations : public ::testing::Test {
protected:
    static void SetUpTestSuite() { support::StartQtApplication("translations_tests"); }
    void TearDown() override { InstallTranslations(QLocale(QLocale::English)); }
};

TEST_F(Translations, EveryCatalogueComposesTheSameMessagesInItsLanguage) {
    InstallTranslations(QLocale(QLocale::English));
    for (const MessageRow& row : Rows()) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.compose(EnglishMessages()), row.english);
        EXPECT_EQ(row.compose(TranslatedMessages()), row.english); // nothing installed
    }
    EXPECT_EQ(InstallTranslations(QLocale(QStringLiteral("de_DE"))), 1);
    for (const MessageRow& row : Rows()) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.compose(TranslatedMessages()), row.german);
        EXPECT_EQ(row.compose(EnglishMessages()), row.english);
    }
    // Installing another language takes the German out again.
    EXPECT_EQ(InstallTranslations(QLocale(QStringLiteral("fr_FR"))), 0);
    EXPECT_EQ(Rows()[0].compose(TranslatedMessages()), Rows()[0].english);
}

// Arguments go in once: a value holding "%2" stays as typed.
TEST(ComposeMessage, PutsEachArgumentInOnce) {
    EXPECT_EQ(ComposeMessage(EnglishMessages(), MessageId::NumberBetween, { u"A %2", u"1", u"%3" }),
        u"A %2 between 1 and %3");
    EXPECT_EQ(ComposeMessage(EnglishMessages(), MessageId::IsRequired), u"%1 is required.");
}

// Each German source is complete: every entry finished, with the placeholders of its English source, and
// every message identity of the control present.
TEST(GermanTranslation, IsCompleteAndKeepsThePlaceholders) {
    const QDir folder(QStringLiteral(QUILLMAR_I18N_DIR));
    const QStringList files = folder.entryList({ QStringLiteral("*_de.ts") });
    ASSERT_GE(files.size(), 4);
    std::set<std::pair<QString, QString>> found;
    const QRegularExpression placeholder(QStringLiteral("%(\\d|n)"));
    const auto placeholders = [&](const QString& text) {
        std::multiset<QString> all;
        for (auto it = placeholder.globalMatch(text); it.hasNext();)
            all.insert(it.next().captured());
        return all;
    };
    for (const QString& name : files) {
        SCOPED_TRACE(name.toStdString());
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        QString context, source;
        while (xml.readNext() != QXmlStreamReader::Invalid && !xml.atEnd()) {
            if (!xml.isStartElement()) continue;
            if (xml.name() == QLatin1String("name")) context = xml.readElementText();
            if (xml.name() == QLatin1String("source"))
                source = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            if (xml.name() != QLatin1String("translation")) continue;
            const QString type = xml.attributes().value(QLatin1String("type")).toString();
            if (type == QLatin1String("vanished") || type == QLatin1String("obsolete")) continue;
            const QString translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            EXPECT_TRUE(type.isEmpty()) << type.toStdString() << ": " << source.toStdString();
            EXPECT_FALSE(translation.isEmpty()) << source.toStdString();
            if (!source.contains(QLatin1String("%n"))) {
                EXPECT_EQ(placeholders(translation), placeholders(source)) << source.toStdString();
            }
            found.insert({ context, source });
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    }
    for (size_t i = 0; i < kMessageCount; ++i) {
        const MessageText& text = MessageSource(static_cast<MessageId>(i));
        EXPECT_TRUE(found.count({ QString::fromUtf8(text.context), QString::fromUtf8(text.english) }))
            << text.english;
    }
}

} // namespace
} // namespace quillmar
