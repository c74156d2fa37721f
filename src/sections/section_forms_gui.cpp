#include "sections/section_forms_gui.h"

#include "sections/frmUser.h"
#include "shell/forms_gui.h"

namespace quillon {

namespace {

template <typename Form>
void registerForm() {
    RegisterForm(QString::fromLatin1(Form::kFormName), [] { return new Form; });
}

}  // namespace

void RegisterSectionForms() {
    registerForm<frmUser>();
}

}  // namespace quillon
