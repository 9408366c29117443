#include "wildedit/wildedit.h"

#include "ui/twips.h"

WildEdit::WildEdit(Form* owner) : ChildForm(owner) {
    SetCaption(QStringLiteral("Wild Morlick Editor"));
    SetClientSize(6375, 3135);
    Placeholder = new QLabel(QStringLiteral("This editor is still being built."), Client());
    Placeholder->setGeometry(Client()->rect());
    Placeholder->setAlignment(Qt::AlignCenter);
}
