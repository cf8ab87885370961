#pragma once

// Saving a control's properties and comparing two saves, for the targets that check save-and-load.

#include "base/MemoryPropertyStore.h"
#include "base/Utf8.h"
#include "control/Quillmar.h"
#include "fuzz/FuzzSupport.h"
#include "host/standalone/StandaloneHost.h"

#include <cstdio>

namespace quillmar::fuzz {

/// A standalone host whose control is named as the text's write default, so that a text of "Text1" loads
/// back as itself (a control named otherwise shows its name in place of a saved "Text1").
struct NamedHost : standalone::StandaloneHost {
    NamedHost() { container.name = u"Text1"; }
};

/// The control's properties as it writes them.
inline quillmar::MemoryPropertyStore Saved(const Quillmar& control) {
    quillmar::MemoryPropertyStore store;
    control.WriteProperties(store);
    return store;
}

/// Stops the run unless the two saves hold the same bytes, printing the entries that differ.
inline void RequireSameSave(const quillmar::MemoryPropertyStore& first,
    const quillmar::MemoryPropertyStore& second, const char* what) {
    if (first.ToBytes() == second.ToBytes()) return;
    const auto print = [](const char* side, const quillmar::MemoryPropertyStore& store,
                           const quillmar::MemoryPropertyStore& other) {
        for (const auto& [key, value] : store.Entries()) {
            const Variant* counterpart = other.Find(key);
            if (counterpart && *counterpart == value) continue;
            std::fprintf(
                stderr, "  %s %s = %s\n", side, quillmar::ToUtf8(key).c_str(), value.Describe().c_str());
        }
    };
    print("first ", first, second);
    print("second", second, first);
    Fail(what);
}

} // namespace quillmar::fuzz
