// The property-store bytes: decoding never faults and stays bounded; a decoded store encodes to bytes that
// decode to the same store and encode to the same bytes; and a control loaded from it saves properties that
// load and save again to the same bytes.
#include "control/Quillmar.h"
#include "fuzz/FuzzSupport.h"
#include "fuzz/SavedProperties.h"

#include <cmath>

namespace quillmar::fuzz {
namespace {

using quillmar::MemoryPropertyStore;

bool HoldsNaN(const Variant& value) {
    if (value.kind() == Variant::Kind::Array) {
        for (const Variant& item : value.AsArray())
            if (HoldsNaN(item)) return true;
        return false;
    }
    const auto number = value.ToDouble();
    return value.kind() != Variant::Kind::Boolean && number && std::isnan(*number);
}

MemoryPropertyStore SavedAfterLoading(const MemoryPropertyStore& store) {
    NamedHost host;
    Quillmar control(host.Services());
    control.ReadProperties(store);
    return Saved(control);
}

} // namespace
} // namespace quillmar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillmar;
    using namespace quillmar::fuzz;
    const auto store = MemoryPropertyStore::FromBytes({ data, size });
    if (!store) return 0;

    const ByteArray bytes = store->ToBytes();
    const auto decoded = MemoryPropertyStore::FromBytes(bytes);
    Require(decoded.has_value(), "a store's own bytes do not decode");
    Require(decoded->ToBytes() == bytes, "a store's bytes change on a second encoding");
    bool anyNaN = false;
    for (const auto& entry : store->Entries())
        anyNaN = anyNaN || HoldsNaN(entry.value);
    if (!anyNaN) Require(*decoded == *store, "a store's bytes decode to another store");

    NamedHost host;
    Quillmar control(host.Services());
    try {
        control.ReadProperties(*store);
    } catch (const PropertyError&) {
        return 0; // a stored value a writer refuses, as a damaged form would hold
    }
    const MemoryPropertyStore first = Saved(control);
    const MemoryPropertyStore second = SavedAfterLoading(first);
    // An empty font name and a font size of 0 are saved against their write defaults, left out, and load
    // back as the defaults "MS Sans Serif" and 8.25; from then on the properties are stable.
    const FontDesc font = control.Font();
    if (font.name.empty() || font.size == 0) {
        RequireSameSave(second, SavedAfterLoading(second), "saved properties change on reloading");
        return 0;
    }
    RequireSameSave(first, second, "saved properties change on loading and saving");
    return 0;
}
