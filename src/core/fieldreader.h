#pragma once

#include <QByteArray>
#include <QString>

#include "core/field.h"

// Reads the text of a data file as a stream of fields. Fields are separated by
// a comma or a line end; records are counted in fields, not lines, so a record
// may run over several lines.
class FieldReader {
public:
    explicit FieldReader(const QByteArray& content);

    // Skips the rest of the current line, whatever it holds.
    void SkipLine();
    // Reads the next field. Returns false, exactly when AtEnd() is true, when
    // the text ended before a field could begin.
    bool ReadField(Field& out);
    // True once nothing but blanks and line ends is left. Editors commonly
    // leave an empty line at the end of a file, so that counts as the end too,
    // and blank lines there are no fields. A comma always separates two
    // fields, though: after a comma one more field follows, empty when only
    // blanks and line ends come after it.
    bool AtEnd() const;
    // The line the reader stands on, counted from 1, for messages.
    int Line() const { return Line_; }
    // The line where the first quoted text began that ran on over a line end
    // or to the end of the text, or that closed on the opening quote of the
    // next field; 0 when none did. Quoted text may hold a line end, but a
    // closing quote that was left out shows the same way, and it puts every
    // later field out of step.
    int RunawayQuoteLine() const { return RunawayQuoteLine_; }
    // The line where a quoted text began that ran to the end of the text
    // without its closing quote; 0 when none did.
    int QuoteLeftOpenLine() const { return QuoteLeftOpenLine_; }

private:
    bool AtLineEnd() const;
    void SkipLineEnd();

    QString Text_;
    qsizetype Pos_ = 0;
    int Line_ = 1;
    // The last separator read was a comma, so another field must follow.
    bool AfterComma_ = false;
    int RunawayQuoteLine_ = 0;
    int QuoteLeftOpenLine_ = 0;
};
