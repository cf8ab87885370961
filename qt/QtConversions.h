#pragma once

#include <quillmar/QtExport.h>

#include <quillmar/base/Enums.h>
#include <quillmar/base/Variant.h>
#include <quillmar/host/Host.h>

#include <QColor>
#include <QFont>
#include <QString>
#include <QVariant>

#include <optional>
#include <string>
#include <string_view>

namespace quillmar::qt {

/// UTF-16 text between the core and Qt: code units are kept as they are.
[[nodiscard]] QUILLMAR_QT_EXPORT QString ToQString(std::u16string_view text);
[[nodiscard]] QUILLMAR_QT_EXPORT std::u16string FromQString(const QString& text);

/// A variant as Qt holds it: Empty as an invalid QVariant, texts as QString, Byte, Integer and Long as int,
/// Single as float, Double as double, currency exactly as a decimal text with a point and no grouping
/// ("-1234.5", at most four decimals, never a rounded double), a date-time as a local QDateTime of the same
/// wall-clock day and time; in a field of `fieldType` `vldDate` a date without a time of day is a QDate, in
/// one of `vldTime` a time without a day a QTime. Byte arrays are QByteArray, arrays QVariantList.
[[nodiscard]] QUILLMAR_QT_EXPORT QVariant ToQVariant(
    const Variant& value, int32_t fieldType = vldUnspecified);
/// A Qt value as a variant: QDate, QTime and QDateTime (read in local time) as a date-time, whole numbers
/// as a Long (a Double when a Long cannot hold them); types Qt has and the core has not are taken as their
/// text. In a field of `fieldType` `vldCurrency` a text in the notation `ToQVariant` gives ("-1234.5") is
/// that amount exactly.
[[nodiscard]] QUILLMAR_QT_EXPORT Variant FromQVariant(
    const QVariant& value, int32_t fieldType = vldUnspecified);
/// The amount of a decimal text with a point and at most four decimals ("-1234.5"), in ten-thousandths;
/// nullopt for any other text (grouping, a comma, an exponent, more decimals).
[[nodiscard]] QUILLMAR_QT_EXPORT std::optional<int64_t> CurrencyOf(const QString& text);

/// An OLE colour: a system colour (high bit set: 5 the window background, 8 the window text) or 0x00BBGGRR.
/// System colours give an invalid QColor, meaning "the style's own".
[[nodiscard]] QUILLMAR_QT_EXPORT QColor ToQColor(uint32_t oleColour);

/// The font of a `FontDesc`; a family the system lacks falls back to the application's font family, and the
/// stored default font (a new field's "MS Sans Serif" of 8.25 points) is the application's font.
[[nodiscard]] QUILLMAR_QT_EXPORT QFont ToQFont(const FontDesc& font);
[[nodiscard]] QUILLMAR_QT_EXPORT FontDesc FromQFont(const QFont& font);

} // namespace quillmar::qt
