// The control without Qt, as a program that links only the core uses it: a field with rules, a text typed
// into its standalone edit box, the check. Built through pkg-config and as a subproject by `make test`.
#include <quillmar/control/Quillmar.h>
#include <quillmar/host/standalone/StandaloneHost.h>

#include <cstdio>

int main() {
    quillmar::standalone::StandaloneHost host("en_US");
    quillmar::Quillmar field(host.Services());
    field.SetMustBeType(quillmar::vldInteger);
    field.SetMaxValue(500);
    host.editBox.TypeText(u"501");
    const int broken = field.CheckInput();
    if (broken != quillmar::vldCCMaxValue) {
        std::fprintf(stderr, "quillmar core: 501 breaks %d\n", broken);
        return 1;
    }
    std::puts("quillmar core: 501 is over the maximum");
    return 0;
}
