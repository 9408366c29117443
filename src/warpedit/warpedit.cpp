#include "warpedit/warpedit.h"

#include "ui/twips.h"

WarpEdit::WarpEdit(Form* owner) : ChildForm(owner) {
    SetCaption(QStringLiteral("Warp Editor"));
    SetClientSize(8175, 7815);
    Placeholder = new QLabel(QStringLiteral("This editor is still being built."), Client());
    Placeholder->setGeometry(Client()->rect());
    Placeholder->setAlignment(Qt::AlignCenter);
}
