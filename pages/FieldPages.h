#pragma once

#include <quillmar/PagesExport.h>

#include <quillmar/pages/PropertyPageFrame.h>

namespace quillmar::pages {

/// Adds the field's pages to the frame in their tab order: General, Number/Date,Time, Text, Behavior and
/// Error Message.
QUILLMAR_PAGES_EXPORT void AddFieldPages(PropertyPageFrame& frame);

} // namespace quillmar::pages
