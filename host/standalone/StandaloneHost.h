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
    /// A host in the process's locale.
    StandaloneHost() = default;
    /// A host in the named locale ("de_DE").
    explicit StandaloneHost(std::string_view localeName)
        : locale(LocaleInfo::FromName(localeName)) { }

    /// The services to construct the control with (`Quillmar(host.Services())`); they refer to this host,
    /// which must outlive the control.
    [[nodiscard]] HostServices Services() {
        return { container, editBox, alerts, locale, aboutBox, catalogue };
    }

    RecordingContainer container; ///< The form: records notifications and focus requests.
    MemoryEditBox editBox; ///< The edit box, typed into as a person would.
    RecordingAlerts alerts; ///< The beeps and message boxes, recorded.
    FixedLocale locale; ///< The locale the control follows.
    CountingAboutBox aboutBox; ///< The about box, counted.
    /// The product's own English texts.
    EnglishCatalogue catalogue;
};

} // namespace quillmar::standalone
