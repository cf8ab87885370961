#pragma once

#include <quillmar/CoreExport.h>

#include "base/Variant.h"

namespace quillmar {

/// The stored form of a list property (`MustNotBeValues`, `Actions`): the bytes of a nested property store
/// holding "NEl", the upper bound as a 16-bit integer (left out when 0; a longer list is cut to 32,767
/// items), then "1N", "2N", ... every item, Empty ones included.
[[nodiscard]] QUILLMAR_CORE_EXPORT ByteArray EncodeList(const VariantArray& list);

/// A list back from its stored form: one empty slot when the entry is absent, not bytes, not a store, or
/// declares an upper bound below 1. Otherwise the list has the declared bounds 0 to n; its items are read in
/// order until one is missing, which leaves that slot and the later ones Empty.
[[nodiscard]] VariantArray DecodeList(const Variant& stored);

} // namespace quillmar
