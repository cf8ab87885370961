#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace quillmar::forms {

/// The name a newly placed field gets: "Quillmar" followed by the smallest number from 1 that no name in
/// `taken` uses (names compare ignoring ASCII case, as the columns of the form's table do).
[[nodiscard]] QString NextFieldName(const QStringList& taken);

/// A name as names compare: its ASCII capitals in lower case.
[[nodiscard]] QString FoldedName(QString name);

/// The name a copy of the field named `name` gets: `name` itself when it is free, else its stem (the name
/// without the digits it ends in) followed by the smallest number from 2 that is free ("Quantity" gives
/// "Quantity2"); a name of digits alone has the stem "Quillmar". `takenFolded` holds the names in use, each
/// as `FoldedName` gives it.
[[nodiscard]] QString CopyName(const QString& name, const QSet<QString>& takenFolded);

/// Why `name` cannot name a field of a form whose other fields are named `others`: empty, or used by
/// another field (ignoring ASCII case). An empty string when it can.
[[nodiscard]] QString FieldNameProblem(const QString& name, const QStringList& others);

/// The title of a new field's error message: "Invalid Entry: " followed by its label.
[[nodiscard]] QString MessageTitleFor(const QString& label);

} // namespace quillmar::forms
