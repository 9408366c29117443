#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "ui/form.h"

// Asks which version of the game the chosen ROM is. The choice decides only
// which tileset file is read.
class VersionSelect : public Form {
    Q_OBJECT
public:
    VersionSelect();

    // The tileset file of the chosen version; empty until the first OK.
    QString TilesetFile;

    QLabel* QIcon;
    QLabel* Label1;
    QListWidget* VersionList;
    QLabel* Label2;
    QPushButton* Command1;

    void Command1_Click();

protected:
    void Form_Unload(bool& Cancel) override;

private:
    void VersionList_SelectionChanged();
};
