#pragma once

#include <quillmar/CoreExport.h>

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quillmar {

/// A currency amount: a signed 64-bit count of ten-thousandths (four fixed decimals).
struct Currency {
    int64_t ticks = 0; ///< The amount times 10000 (12.5 is 125000).
    /// Equal amounts.
    friend bool operator==(const Currency&, const Currency&) = default;
};

/// A date-time: days counted from 30 December 1899 at midnight, the fraction being the time of day.
/// Before that day the whole part counts back and the fraction still counts forward in time
/// (-1.25 is 29 December 1899, 06:00).
struct Date {
    double days = 0; ///< Days since 30 December 1899; the fraction is the time of day.
    /// The same instant.
    friend bool operator==(const Date&, const Date&) = default;
};

class Variant;
/// A one-dimensional array of variants whose lower bound is 0.
using VariantArray = std::vector<Variant>;
/// A byte array, as the property store keeps the encoded lists.
using ByteArray = std::vector<uint8_t>;

/// The tagged value of properties and converted texts. Empty is distinct from the empty string.
class QUILLMAR_CORE_EXPORT Variant {
public:
    /// The kinds a variant can hold, in the order of the underlying alternatives.
    enum class Kind : uint8_t {
        Empty, ///< No value at all (not the empty string).
        Boolean, ///< `bool`.
        String, ///< UTF-16 text.
        Byte, ///< Unsigned 8-bit integer.
        Integer, ///< Signed 16-bit integer.
        Long, ///< Signed 32-bit integer.
        Single, ///< Single-precision float.
        Double, ///< Double-precision float.
        Currency, ///< `quillmar::Currency`.
        Date, ///< `quillmar::Date`.
        Bytes, ///< A `ByteArray`.
        Array ///< A `VariantArray`.
    };

    /// An Empty variant.
    Variant() = default;
    /// A variant of the kind that holds `v` (a `char16_t` text is held as a String; `uint8_t` is a Byte,
    /// `int16_t` an Integer, `int32_t` a Long). Implicit, so that a value is given where a variant is taken.
    ///@{
    Variant(bool v)
        : m_value(v) { }
    Variant(std::u16string v)
        : m_value(std::move(v)) { }
    Variant(const char16_t* v)
        : m_value(std::u16string(v)) { }
    Variant(std::u16string_view v)
        : m_value(std::u16string(v)) { }
    Variant(uint8_t v)
        : m_value(v) { }
    Variant(int16_t v)
        : m_value(v) { }
    Variant(int32_t v)
        : m_value(v) { }
    Variant(float v)
        : m_value(v) { }
    Variant(double v)
        : m_value(v) { }
    Variant(quillmar::Currency v)
        : m_value(v) { }
    Variant(quillmar::Date v)
        : m_value(v) { }
    Variant(ByteArray v)
        : m_value(std::move(v)) { }
    Variant(VariantArray v)
        : m_value(std::move(v)) { }
    ///@}

    /// The kind of value held.
    [[nodiscard]] Kind kind() const noexcept { return static_cast<Kind>(m_value.index()); }
    /// True for the Empty variant.
    [[nodiscard]] bool IsEmpty() const noexcept { return kind() == Kind::Empty; }
    /// True for a String, the empty string included.
    [[nodiscard]] bool IsString() const noexcept { return kind() == Kind::String; }
    /// True for Byte, Integer, Long, Single, Double and Currency.
    [[nodiscard]] bool IsNumber() const noexcept;

    /// The held value; the kind must match (a mismatch throws `std::bad_variant_access`).
    ///@{
    [[nodiscard]] bool AsBoolean() const { return std::get<bool>(m_value); }
    [[nodiscard]] const std::u16string& AsString() const { return std::get<std::u16string>(m_value); }
    [[nodiscard]] uint8_t AsByte() const { return std::get<uint8_t>(m_value); }
    [[nodiscard]] int16_t AsInteger() const { return std::get<int16_t>(m_value); }
    [[nodiscard]] int32_t AsLong() const { return std::get<int32_t>(m_value); }
    [[nodiscard]] float AsSingle() const { return std::get<float>(m_value); }
    [[nodiscard]] double AsDouble() const { return std::get<double>(m_value); }
    [[nodiscard]] quillmar::Currency AsCurrency() const { return std::get<quillmar::Currency>(m_value); }
    [[nodiscard]] quillmar::Date AsDate() const { return std::get<quillmar::Date>(m_value); }
    [[nodiscard]] const ByteArray& AsBytes() const { return std::get<ByteArray>(m_value); }
    [[nodiscard]] const VariantArray& AsArray() const { return std::get<VariantArray>(m_value); }
    ///@}

    /// The numeric value of a Boolean (-1 or 0), a number or a date as a double; nullopt for the rest.
    [[nodiscard]] std::optional<double> ToDouble() const;

    /// True when the variant is the empty string (the cleared state of limits and defaults).
    [[nodiscard]] bool IsEmptyString() const noexcept { return IsString() && AsString().empty(); }

    /// Same kind and same value (floats compared exactly, arrays element by element).
    friend bool operator==(const Variant&, const Variant&) = default;

    /// A short readable form for diagnostics and test failures: the kind and the value ("Double 2.5").
    [[nodiscard]] std::string Describe() const;

private:
    std::variant<std::monostate, bool, std::u16string, uint8_t, int16_t, int32_t, float, double,
        quillmar::Currency, quillmar::Date, ByteArray, VariantArray>
        m_value;
};

/// Prints a variant's `Describe` form (found by GoogleTest when a comparison fails).
QUILLMAR_CORE_EXPORT void PrintTo(const Variant& value, std::ostream* out);

} // namespace quillmar
