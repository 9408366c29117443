#include "startup/versionselect.h"

#include <QStyle>

#include "core/datafilenames.h"
#include "startup/program.h"
#include "startup/splash.h"
#include "ui/twips.h"

VersionSelect::VersionSelect() {
    SetCaption(QStringLiteral("Tarnwey"));
    SetClientSize(3870, 2295);
    RemoveCloseBox();

    QIcon = new QLabel(Client());
    Place(QIcon, 120, 240, 480, 480);
    QIcon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(Px(480)));
    Label1 = new QLabel(QStringLiteral("What version of Morlick is the ROM that you have opened?"),
                        Client());
    Place(Label1, 720, 120, 3015, 495);
    Label1->setWordWrap(true);
    VersionList = new QListWidget(Client());
    Place(VersionList, 720, 600, 3015, 645);
    VersionList->addItems(
        {QStringLiteral("Morlick Red (English)"), QStringLiteral("Morlick Blue (English)")});
    VersionList->setSelectionMode(QAbstractItemView::SingleSelection);
    // The first version is chosen from the start, so OK always has a row.
    VersionList->setCurrentRow(0);
    Label2 = new QLabel(
        QStringLiteral("Other versions may work to some extent, but have not been fully tested."),
        Client());
    Place(Label2, 720, 1320, 3015, 495);
    Label2->setWordWrap(true);
    Command1 = new QPushButton(QStringLiteral("OK"), Client());
    Place(Command1, 1320, 1800, 1215, 375);
    Command1->setDefault(true);

    connect(Command1, &QPushButton::clicked, this, &VersionSelect::Command1_Click);
    connect(VersionList, &QListWidget::itemSelectionChanged, this,
            &VersionSelect::VersionList_SelectionChanged);
    // Enter or a double click on a version does what OK does.
    connect(VersionList, &QListWidget::itemActivated, this, &VersionSelect::Command1_Click);
}

void VersionSelect::VersionList_SelectionChanged() {
    // A list can lose its selection (a Ctrl+click does it); the row under the
    // cursor is then selected again, so there is always a version to take.
    if (VersionList->selectedItems().isEmpty()) {
        const int row = std::max(0, VersionList->currentRow());
        VersionList->item(row)->setSelected(true);
    }
}

void VersionSelect::Command1_Click() {
    const auto selected = VersionList->selectedItems();
    if (selected.isEmpty()) return;
    const int row = VersionList->row(selected.first());
    TilesetFile = row == 0 ? DataFileNames::TilesetsRed : DataFileNames::TilesetsBlue;
    HideForm();
    if (Splash* splash = Program::SplashForm()) {
        splash->ShowForm();
        splash->Timer1->SetEnabled(true);
    }
}

void VersionSelect::Form_Unload(bool& Cancel) {
    // Closing the question without an answer gives the pass up, as
    // cancelling the file chooser does.
    Cancel = false;
    Program::GiveUpPass();
}
