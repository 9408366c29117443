#include "eventedit/eventedit.h"

#include "ui/twips.h"

EventEdit::EventEdit(Form* owner) : ChildForm(owner) {
    SetCaption(QStringLiteral("Event Editor"));
    SetClientSize(8175, 7935);
    Placeholder = new QLabel(QStringLiteral("This editor is still being built."), Client());
    Placeholder->setGeometry(Client()->rect());
    Placeholder->setAlignment(Qt::AlignCenter);
}
