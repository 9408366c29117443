#include "blockedit/blockedit.h"

#include "ui/twips.h"

BlockEdit::BlockEdit(Form* owner) : ChildForm(owner) {
    SetCaption(QStringLiteral("Tarnwey - Building Block Editor"));
    SetClientSize(5415, 4095);
    Placeholder = new QLabel(QStringLiteral("This editor is still being built."), Client());
    Placeholder->setGeometry(Client()->rect());
    Placeholder->setAlignment(Qt::AlignCenter);
}
