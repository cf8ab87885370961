#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/host/standalone/MemoryEditBox.h>
#include <quillmar/host/standalone/Recorders.h>

#include <string_view>

namespace quillmar::standalone {

/// Every host service in memory, for tests, headless use and batch validation. The locale is the process's
/// unless one is named. A host serves one control at a time: constructing a second control on it while the
/// first lives throws `std::logic_error` (its edit box refuses a second control).
class QUILLMAR_CORE_EXPORT StandaloneHost {
public:
    StandaloneHost() = default;
    explicit StandaloneHost(std::string_view localeName)
        : locale(LocaleInfo::FromName(localeName)) { }

    [[nodiscard]] HostServices Services() {
        return { container, editBox, alerts, locale, aboutBox, catalogue };
    }

    RecordingContainer container;
    MemoryEditBox editBox;
    RecordingAlerts alerts;
    FixedLocale locale;
    CountingAboutBox aboutBox;
    /// The product's own English texts.
    EnglishCatalogue catalogue;
};

} // namespace quillmar::standalone
