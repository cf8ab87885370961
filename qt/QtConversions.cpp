#include "qt/QtConversions.h"

#include <QApplication>
#include <QDateTime>
#include <QFontDatabase>
#include <QTimeZone>

#include <cmath>

namespace quillmar::qt {
namespace {

const QDateTime& DayZero() {
    static const QDateTime zero(QDate(1899, 12, 30), QTime(0, 0), QTimeZone::utc());
    return zero;
}

} // namespace

QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

std::u16string FromQString(const QString& text) {
    return std::u16string(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size()));
}

QVariant ToQVariant(const Variant& value) {
    switch (value.kind()) {
    case Variant::Kind::Boolean:
        return value.AsBoolean();
    case Variant::Kind::String:
        return ToQString(value.AsString());
    case Variant::Kind::Byte:
        return QVariant::fromValue(value.AsByte());
    case Variant::Kind::Integer:
        return QVariant::fromValue(value.AsInteger());
    case Variant::Kind::Long:
        return QVariant::fromValue(value.AsLong());
    case Variant::Kind::Single:
        return value.AsSingle();
    case Variant::Kind::Double:
        return value.AsDouble();
    case Variant::Kind::Currency:
        return static_cast<double>(value.AsCurrency().ticks) / 10000.0;
    case Variant::Kind::Date:
        return DayZero().addMSecs(static_cast<qint64>(std::llround(value.AsDate().days * 86400000.0)));
    case Variant::Kind::Bytes: {
        const ByteArray& bytes = value.AsBytes();
        return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    }
    case Variant::Kind::Array: {
        QVariantList list;
        for (const Variant& item : value.AsArray())
            list.append(ToQVariant(item));
        return list;
    }
    default:
        return {};
    }
}

Variant FromQVariant(const QVariant& value) {
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
    case QMetaType::QDateTime:
        return Date { static_cast<double>(DayZero().msecsTo(value.toDateTime().toTimeZone(QTimeZone::utc())))
            / 86400000.0 };
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return ByteArray(bytes.begin(), bytes.end());
    }
    case QMetaType::QVariantList: {
        VariantArray items;
        for (const QVariant& item : value.toList())
            items.push_back(FromQVariant(item));
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
