#pragma once

#include "pages/PropertyPageFrame.h"

namespace quillmar::pages {

/// Adds the field's pages to the frame in their tab order: General, Number/Date,Time, Text, Behavior and
/// Error Message.
void AddFieldPages(PropertyPageFrame& frame);

} // namespace quillmar::pages
