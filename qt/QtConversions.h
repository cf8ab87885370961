#pragma once

#include "base/Variant.h"
#include "host/Host.h"

#include <QColor>
#include <QFont>
#include <QString>
#include <QVariant>

#include <string>
#include <string_view>

namespace quillmar::qt {

/// UTF-16 text between the core and Qt: code units are kept as they are.
[[nodiscard]] QString ToQString(std::u16string_view text);
[[nodiscard]] std::u16string FromQString(const QString& text);

/// A variant as Qt holds it: Empty as an invalid QVariant, texts as QString, numbers as their C++ types,
/// currency as a double of its amount, dates as QDateTime, byte arrays as QByteArray, arrays as QVariantList.
[[nodiscard]] QVariant ToQVariant(const Variant& value);
/// A Qt value as a variant; types Qt has and the core has not are taken as their text.
[[nodiscard]] Variant FromQVariant(const QVariant& value);

/// An OLE colour: a system colour (high bit set: 5 the window background, 8 the window text) or 0x00BBGGRR.
/// System colours give an invalid QColor, meaning "the style's own".
[[nodiscard]] QColor ToQColor(uint32_t oleColour);

/// The font of a `FontDesc`; a family the system lacks falls back to the application's font family, and the
/// stored default font (a new field's "MS Sans Serif" of 8.25 points) is the application's font.
[[nodiscard]] QFont ToQFont(const FontDesc& font);
[[nodiscard]] FontDesc FromQFont(const QFont& font);

} // namespace quillmar::qt
