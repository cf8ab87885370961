#include "base/Variant.h"

#include <ostream>
#include <sstream>
#include <string>

namespace quillmar {

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

std::string Variant::Describe() const {
    static constexpr const char* kNames[] = { "Empty", "Boolean", "String", "Byte", "Integer", "Long",
        "Single", "Double", "Currency", "Date", "ByteArray", "Array" };
    std::string text = kNames[static_cast<size_t>(kind())];
    switch (kind()) {
    case Kind::Empty:
        return text;
    case Kind::String:
        text += " \"";
        for (char16_t c : AsString())
            text += c < 128 ? static_cast<char>(c) : '?';
        return text + "\"";
    case Kind::Bytes:
        return text + " of " + std::to_string(AsBytes().size());
    case Kind::Array:
        text += " [";
        for (const Variant& item : AsArray())
            text += item.Describe() + ", ";
        return text + "]";
    case Kind::Currency:
        return text + " " + std::to_string(AsCurrency().ticks) + "/10000";
    default: {
        std::ostringstream out;
        out.precision(17);
        out << *ToDouble();
        return text + " " + out.str();
    }
    }
}

void PrintTo(const Variant& value, std::ostream* out) {
    *out << value.Describe();
}

} // namespace quillmar
