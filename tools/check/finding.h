#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace Check {

// A cell of a data file that would make the editor read or write the wrong
// bytes, told so that a user can find the cell and mend it.
struct Finding {
    QString File;          // the data file, "Maps.twy"
    int Row = -1;          // row of the file's table, counted from 0; -1 for the file as a whole
    QString Name;          // name of the row's map, event type, category or species, if it has one
    int Column = -1;       // counted from 0, the record's first field; -1 for the row as a whole
    QString ColumnName;    // the column in plain words
    QString What;          // what is wrong, as a sentence
    QStringList Versions;  // the versions whose check found it; empty for every version checked
};

// A file that cannot be read, with the reason as the editor gives it.
struct Unreadable {
    QString File;
    QString Message;
};

// What a check of a program folder found.
struct CheckReport {
    QStringList Versions;  // the versions checked, "red" and "blue"
    std::vector<Finding> Findings;
    std::vector<Unreadable> Unreadables;

    // 0 when every file was read and nothing found, 1 when something was
    // found, 2 when a file could not be read.
    int ExitStatus() const;
};

}  // namespace Check
