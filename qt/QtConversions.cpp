#include "qt/QtConversions.h"

#include <QApplication>
#include <QDateTime>
#include <QFontDatabase>
#include <QRegularExpression>

#include <cmath>
#include <utility>

namespace quillmar::qt {
namespace {

const QDate kDayZero(1899, 12, 30);
constexpr double kMsPerDay = 86400000.0;

// The day and the time of day of a date-time, as a wall clock reads them.
std::pair<QDate, QTime> DayAndTime(Date date) {
    const double whole = std::trunc(date.days);
    auto ms = static_cast<qint64>(std::llround(std::fabs(date.days - whole) * kMsPerDay));
    qint64 day = static_cast<qint64>(whole);
    if (ms >= static_cast<qint64>(kMsPerDay)) { // rounded up to the next midnight
        ms -= static_cast<qint64>(kMsPerDay);
        day += date.days < 0 ? -1 : 1;
    }
    return { kDayZero.addDays(day), QTime::fromMSecsSinceStartOfDay(static_cast<int>(ms)) };
}

Date DateOf(QDate day, QTime time) {
    const double whole = static_cast<double>(kDayZero.daysTo(day));
    const double fraction = time.isValid() ? time.msecsSinceStartOfDay() / kMsPerDay : 0;
    return Date { whole < 0 ? whole - fraction : whole + fraction };
}

// An amount of ten-thousandths as a decimal text with a point: "-12.5", "0.0001", "100".
QString CurrencyText(int64_t ticks) {
    const bool negative = ticks < 0;
    const uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(ticks) : static_cast<uint64_t>(ticks);
    QString text = QString::number(magnitude / 10000);
    if (const uint64_t fraction = magnitude % 10000; fraction != 0) {
        QString decimals = QString::number(fraction).rightJustified(4, u'0');
        while (decimals.endsWith(u'0'))
            decimals.chop(1);
        text += u'.' + decimals;
    }
    return negative ? u'-' + text : text;
}

} // namespace

QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

std::u16string FromQString(const QString& text) {
    return std::u16string(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size()));
}

QVariant ToQVariant(const Variant& value, int32_t fieldType) {
    switch (value.kind()) {
    case Variant::Kind::Boolean:
        return value.AsBoolean();
    case Variant::Kind::String:
        return ToQString(value.AsString());
    case Variant::Kind::Byte:
        return static_cast<int>(value.AsByte());
    case Variant::Kind::Integer:
        return static_cast<int>(value.AsInteger());
    case Variant::Kind::Long:
        return static_cast<int>(value.AsLong());
    case Variant::Kind::Single:
        return value.AsSingle();
    case Variant::Kind::Double:
        return value.AsDouble();
    case Variant::Kind::Currency:
        return CurrencyText(value.AsCurrency().ticks);
    case Variant::Kind::Date: {
        const auto [day, time] = DayAndTime(value.AsDate());
        if (fieldType == vldDate && time.msecsSinceStartOfDay() == 0) return day;
        if (fieldType == vldTime && day == kDayZero) return time;
        return QDateTime(day, time);
    }
    case Variant::Kind::Bytes: {
        const ByteArray& bytes = value.AsBytes();
        return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    }
    case Variant::Kind::Array: {
        QVariantList list;
        for (const Variant& item : value.AsArray())
            list.append(ToQVariant(item, fieldType));
        return list;
    }
    default:
        return {};
    }
}

std::optional<int64_t> CurrencyOf(const QString& text) {
    static const QRegularExpression decimal(QStringLiteral("^(-?)(\\d{1,15})(?:\\.(\\d{1,4}))?$"));
    const QRegularExpressionMatch match = decimal.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const int64_t whole = match.captured(2).toLongLong();
    const int64_t fraction = match.captured(3).leftJustified(4, u'0').toLongLong();
    const int64_t ticks = whole * 10000 + fraction;
    return match.captured(1).isEmpty() ? ticks : -ticks;
}

Variant FromQVariant(const QVariant& value, int32_t fieldType) {
    if (fieldType == vldCurrency && value.typeId() == QMetaType::QString)
        if (const auto ticks = CurrencyOf(value.toString())) return Currency { *ticks };
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return {};
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::UChar:
        return static_cast<uint8_t>(value.toUInt());
    case QMetaType::Short:
        return static_cast<int16_t>(value.toInt());
    case QMetaType::Int:
        return static_cast<int32_t>(value.toInt());
    case QMetaType::Float:
        return value.toFloat();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: {
        // A whole number that a Long holds stays whole; a larger one is a Double, as the control counts.
        bool fits = false;
        const int number = value.toInt(&fits);
        if (fits) return static_cast<int32_t>(number);
        return value.toDouble();
    }
    case QMetaType::QDate:
        return DateOf(value.toDate(), QTime());
    case QMetaType::QTime:
        return DateOf(kDayZero, value.toTime());
    case QMetaType::QDateTime: {
        const QDateTime local = value.toDateTime().toLocalTime();
        return DateOf(local.date(), local.time());
    }
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return ByteArray(bytes.begin(), bytes.end());
    }
    case QMetaType::QVariantList: {
        VariantArray items;
        for (const QVariant& item : value.toList())
            items.push_back(FromQVariant(item, fieldType));
        return items;
    }
    default:
        return FromQString(value.toString());
    }
}

QColor ToQColor(uint32_t oleColour) {
    if (oleColour & 0x80000000u) return {};
    return QColor(static_cast<int>(oleColour & 0xFF), static_cast<int>((oleColour >> 8) & 0xFF),
        static_cast<int>((oleColour >> 16) & 0xFF));
}

QFont ToQFont(const FontDesc& font) {
    QFont result = QApplication::font();
    const QString family = ToQString(font.name);
    // A field that keeps the stored default font shows the platform's own, as the labels beside it do.
    const FontDesc standard;
    const bool isDefault = font.name == standard.name && font.size == standard.size;
    if (!isDefault && !family.isEmpty() && QFontDatabase::hasFamily(family)) result.setFamily(family);
    if (!isDefault && font.size > 0) result.setPointSizeF(font.size);
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethru);
    return result;
}

FontDesc FromQFont(const QFont& font) {
    FontDesc desc;
    desc.name = FromQString(font.family());
    desc.size = static_cast<float>(font.pointSizeF());
    desc.bold = font.bold();
    desc.italic = font.italic();
    desc.underline = font.underline();
    desc.strikethru = font.strikeOut();
    return desc;
}

} // namespace quillmar::qt
