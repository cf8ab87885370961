#include "apps/forms/FieldClipboard.h"

#include "apps/forms/FieldNames.h"
#include "qt/QtConversions.h"

#include <QMimeData>

#include <algorithm>
#include <set>
#include <utility>

namespace quillmar::forms {
namespace {

constexpr int kPasteStep = 16;

} // namespace

QMimeData* FieldsToMime(const std::vector<FormControl>& fields, QSize formSize) {
    FormDocument document;
    document.width = formSize.width();
    document.height = formSize.height();
    document.controls = fields;
    const QByteArray json = QByteArray::fromStdString(FormToJson(document));
    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(kFieldsMimeType), json);
    data->setText(QString::fromUtf8(json));
    return data;
}

ClipboardFields FieldsFromMime(const QMimeData* data) {
    if (!data || !data->hasFormat(QString::fromLatin1(kFieldsMimeType))) return {};
    const QByteArray json = data->data(QString::fromLatin1(kFieldsMimeType));
    FormResult read = ParseFormJson(std::string_view(json.constData(), size_t(json.size())), "clipboard");
    if (!read.document) return { {}, std::move(read.error) };
    return { std::move(read.document->controls), {} };
}

std::vector<FormControl> FitPastedFields(std::vector<FormControl> pasted, const QStringList& taken,
    const std::vector<QRect>& occupied, QSize form) {
    QSet<QString> takenFolded;
    for (const QString& name : taken)
        takenFolded.insert(FoldedName(name));
    for (FormControl& field : pasted) {
        const QString name = CopyName(qt::ToQString(field.name), takenFolded);
        field.name = qt::FromQString(name);
        takenFolded.insert(FoldedName(name));
    }
    std::set<std::pair<int, int>> corners;
    for (const QRect& r : occupied)
        corners.emplace(r.left(), r.top());
    const auto lands = [&](int shift) {
        return std::any_of(pasted.begin(), pasted.end(), [&](const FormControl& field) {
            return corners.contains({ field.left + shift, field.top + shift });
        });
    };
    int shift = 0;
    while (shift <= kMaxFormExtent && lands(shift))
        shift += kPasteStep;
    for (FormControl& field : pasted) {
        field.left = std::clamp(field.left + shift, 0, std::max(0, form.width() - field.width));
        field.top = std::clamp(field.top + shift, 0, std::max(0, form.height() - field.height));
    }
    return pasted;
}

} // namespace quillmar::forms
