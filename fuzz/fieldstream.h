#pragma once

#include <QByteArray>
#include <vector>

#include "core/field.h"

// The fields of a data file's text as one stream: `headerLines` lines
// skipped, then every field the field reader gives until it says the text
// has ended. A loader that reads records of n fields must fill its rows with
// exactly these fields, n at a time, so a target can check a table against
// it without a second reader of the file format. A quote left open at the
// end of the text makes the file damaged however many fields it gave; the
// stream tells of it through `quoteLeftOpen`.
std::vector<Field> FieldStream(const QByteArray& content, int headerLines,
                               bool* quoteLeftOpen = nullptr);
