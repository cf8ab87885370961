#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/base/Variant.h>

#include <string_view>

namespace quillmar {

/// The container's store of a control's persisted properties: named entries holding variants.
class QUILLMAR_CORE_EXPORT PropertyStore {
public:
    virtual ~PropertyStore() = default;
    /// The entry's value, or `defaultValue` when the store has no such entry.
    [[nodiscard]] virtual Variant ReadProperty(
        std::u16string_view key, const Variant& defaultValue) const = 0;
    /// Stores the entry; a value equal to `defaultValue` is left out of the store (an earlier entry of the
    /// same key is removed). An Empty `defaultValue` means the entry is always written.
    virtual void WriteProperty(std::u16string_view key, const Variant& value, const Variant& defaultValue)
        = 0;
};

} // namespace quillmar
