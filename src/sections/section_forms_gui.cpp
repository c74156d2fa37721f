#include "sections/section_forms_gui.h"

#include "sections/frmPersonal.h"
#include "sections/frmSpouseList.h"
#include "sections/frmUser.h"
#include "sections/sections.h"
#include "shell/forms_gui.h"

namespace quillon {

namespace {

template <typename Form>
void registerForm() {
    RegisterForm(QString::fromLatin1(Form::kFormName), [] { return new Form; });
}

// The spouse list opens over the main window.
void registerSpouseList() {
    RegisterForm(QString::fromLatin1(frmSpouseList::kFormName),
                 [] { return new frmSpouseList(LoadedForm(QStringLiteral("frmQuillon"))); });
}

}  // namespace

void RegisterSectionForms() {
    registerForm<frmPersonal>();
    registerForm<frmUser>();
    registerSpouseList();
}

}  // namespace quillon
