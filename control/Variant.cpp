#include "control/Variant.h"
#include "control/PropertyError.h"

#include <string>

namespace quillmar {

PropertyError::PropertyError(int number)
    : std::runtime_error("property error " + std::to_string(number))
    , m_number(number) { }

bool Variant::IsNumber() const noexcept {
    switch (kind()) {
    case Kind::Byte:
    case Kind::Integer:
    case Kind::Long:
    case Kind::Single:
    case Kind::Double:
    case Kind::Currency:
        return true;
    default:
        return false;
    }
}

std::optional<double> Variant::ToDouble() const {
    switch (kind()) {
    case Kind::Boolean:
        return AsBoolean() ? -1.0 : 0.0;
    case Kind::Byte:
        return AsByte();
    case Kind::Integer:
        return AsInteger();
    case Kind::Long:
        return AsLong();
    case Kind::Single:
        return AsSingle();
    case Kind::Double:
        return AsDouble();
    case Kind::Currency:
        return static_cast<double>(AsCurrency().ticks) / 10000.0;
    case Kind::Date:
        return AsDate().days;
    default:
        return std::nullopt;
    }
}

} // namespace quillmar
