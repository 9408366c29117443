#include "mapedit/about.h"

#include "ui/splashpicture.h"
#include "ui/twips.h"

About::About(Form* owner) : ChildForm(owner) {
    SetCaption(QStringLiteral("About Tarnwey"));
    SetClientSize(5280, 5055);
    RemoveCloseBox();
    Picture = new QLabel(Client());
    Place(Picture, 120, 120, 5040, 2160);
    Picture->setPixmap(SplashPicture(Picture->size()));
    Label1 = new QLabel(QStringLiteral("Tarnwey Version 1.2"), Client());
    Place(Label1, 120, 2400, 5040, 375);
    Label1->setAlignment(Qt::AlignCenter);
    QFont bold = Label1->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.3);
    Label1->setFont(bold);
    Credits = new QLabel(QStringLiteral("A map editor for Morlick Red and Morlick Blue.\n\n"
                                        "Programming: the Tarnwey team\n"
                                        "Tile pictures and demo maps: drawn by the Tarnwey demo "
                                        "maker\n\nThanks to everyone who mapped a town by hand."),
                         Client());
    Place(Credits, 120, 2880, 5040, 1455);
    Credits->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    Credits->setWordWrap(true);
    Command1 = new QPushButton(QStringLiteral("^_^"), Client());
    Place(Command1, 2040, 4500, 1215, 375);
    connect(Command1, &QPushButton::clicked, this, &About::Command1_Click);
}
