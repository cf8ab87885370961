#pragma once

// The form-file module as one include: a form's types, its entries and its whole text to and from JSON,
// its checks, the controls built from it, and its atomic save.
#include <quillmar/formfile/AtomicSave.h>
#include <quillmar/formfile/FormCheck.h>
#include <quillmar/formfile/FormControls.h>
#include <quillmar/formfile/FormDocument.h>
#include <quillmar/formfile/FormEntries.h>
#include <quillmar/formfile/FormJson.h>
