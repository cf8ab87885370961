// A field made from the installed package checks a text by its rules, its page frame is at hand, and the
// installed Designer plugin makes fields for QUiLoader that are this program's own QuillmarEdit, which the
// form-level helpers find.
// Argument: the folder of the installed Designer plugin.
#include <quillmar/pages/FieldPages.h>
#include <quillmar/pages/PropertyPageFrame.h>
#include <quillmar/qt/QuillmarEdit.h>
#include <quillmar/qt/QuillmarForm.h>

#include <QApplication>
#include <QBuffer>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QPluginLoader>
#include <QPushButton>
#include <QUiLoader>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

int Fail(const char* what, const QString& detail = {}) {
    std::fprintf(stderr, "quillmar package: %s %s\n", what, qPrintable(detail));
    return 1;
}

const char kForm[] = R"(<ui version="4.0">
 <class>Order</class>
 <widget class="QWidget" name="Order">
  <widget class="quillmar::qt::QuillmarEdit" name="quantity">
   <property name="MustBeType"><enum>quillmar::vldInteger</enum></property>
  </widget>
 </widget>
 <customwidgets>
  <customwidget>
   <class>quillmar::qt::QuillmarEdit</class>
   <extends>QWidget</extends>
   <header location="global">quillmar/qt/QuillmarEdit.h</header>
  </customwidget>
 </customwidgets>
</ui>
)";

// The README's dialog, built as it is there: OK follows the fields' validity.
int DialogFromReadme() {
    using quillmar::qt::QuillmarEdit;
    QDialog dialog;
    auto* layout = new QFormLayout(&dialog);
    auto* quantity = new QuillmarEdit(&dialog);
    quantity->SetLocaleName(QStringLiteral("en_US"));
    quantity->SetMustBeType(quillmar::vldInteger);
    quantity->SetRequiredField(true);
    quantity->SetMinValue(QStringLiteral("1"));
    quantity->SetMaxValue(QStringLiteral("500"));
    auto* price = new QuillmarEdit(&dialog);
    price->SetMustBeType(quillmar::vldCurrency);
    price->SetMustBePositive(true);
    layout->addRow(QStringLiteral("&Quantity:"), quantity);
    layout->addRow(QStringLiteral("&Price:"), price);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout->addRow(buttons);
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    const auto enableOk = [&] { ok->setEnabled(quillmar::qt::InvalidFields(dialog).empty()); };
    for (QuillmarEdit* field : { quantity, price })
        QObject::connect(field, &QuillmarEdit::ValidityChanged, &dialog, enableOk);
    enableOk();
    if (ok->isEnabled()) return Fail("OK is enabled with the required quantity empty");
    quantity->SetText(QStringLiteral("12"));
    if (!ok->isEnabled()) return Fail("OK stays off with a valid quantity");
    quantity->SetText(QStringLiteral("600"));
    const std::vector<quillmar::qt::InvalidField> invalid = quillmar::qt::InvalidFields(dialog);
    if (ok->isEnabled() || invalid.size() != 1 || invalid.front().label != QStringLiteral("Quantity"))
        return Fail("a quantity of 600 leaves OK on or is not listed as Quantity");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc != 2) return Fail("usage: quillmar-package-consumer <designer plugin folder>");
    const QString pluginDir = QString::fromLocal8Bit(argv[1]);

    quillmar::qt::QuillmarEdit field;
    field.SetLocaleName(QStringLiteral("en_US"));
    field.SetMustBeType(quillmar::vldInteger);
    field.SetMaxValue(500);
    field.SetText(QStringLiteral("250"));
    if (!field.IsValid()) return Fail("250 is refused");
    field.SetText(QStringLiteral("501"));
    if (field.CheckInput() != quillmar::vldCCMaxValue) return Fail("501 is taken");
    if (field.property("MustBeType").toString() != QStringLiteral("vldInteger"))
        return Fail("MustBeType reads", field.property("MustBeType").toString());
    if (DialogFromReadme() != 0) return 1;
    quillmar::pages::PropertyPageFrame frame;
    quillmar::pages::AddFieldPages(frame);
    if (frame.PageCount() != 5) return Fail("pages", QString::number(frame.PageCount()));

    // The plugin file loads as Designer loads it.
    const QStringList plugins = QDir(pluginDir).entryList({ QStringLiteral("*.so") }, QDir::Files);
    if (plugins.size() != 1) return Fail("plugins in", pluginDir);
    QPluginLoader plugin(QDir(pluginDir).absoluteFilePath(plugins.front()));
    if (!plugin.load()) return Fail("plugin", plugin.errorString());

    // A form read at run time: the plugin makes the field, and the field is a QuillmarEdit of this program.
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(pluginDir);
    QByteArray form(kForm);
    QBuffer buffer(&form);
    std::unique_ptr<QWidget> widget(loader.load(&buffer));
    if (!widget) return Fail("QUiLoader", loader.errorString());
    auto* quantity
        = qobject_cast<quillmar::qt::QuillmarEdit*>(widget->findChild<QWidget*>(QStringLiteral("quantity")));
    if (!quantity) return Fail("the loaded field is not a QuillmarEdit");
    if (quantity->MustBeType() != quillmar::vldInteger) return Fail("the loaded field's type");
    // The form-level helper finds it once its text is not an integer.
    quantity->SetText(QStringLiteral("12a"));
    const std::vector<quillmar::qt::InvalidField> invalid = quillmar::qt::InvalidFields(*widget);
    if (invalid.size() != 1 || invalid.front().field != quantity || invalid.front().message.isEmpty())
        return Fail("invalid fields", QString::number(invalid.size()));

    std::puts("quillmar package: the field checks its text, and QUiLoader's field is a QuillmarEdit");
    return 0;
}
