#pragma once

#include <QTemporaryDir>

#include "core/scripteddialogs.h"
#include "fixture/smallproject.h"
#include "mapedit/mainform.h"

// A program folder with a 255 x 255 map on a tileset of 256 blocks, and the
// working state read from its data files, for the benchmarks.
class BigMapFolder {
public:
    BigMapFolder();
    ~BigMapFolder();
    const QString& RomPath() const { return RomPath_; }
    int Map() const { return 0; }
    // Starts the program on the folder and returns the main window.
    MainForm* StartUp();
    const Fixture::SmallProject& Project() const { return Project_; }

private:
    QTemporaryDir Dir_;
    Fixture::SmallProject Project_;
    QString RomPath_;
    ScriptedDialogs Script_;
};
