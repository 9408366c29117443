#include "core/fieldreader.h"

#include <QStringDecoder>

namespace {
bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

// "#TRUE#" and "#FALSE#" spell the truth values, as a data file writer would.
bool ReadsAsFlag(const QString& s, bool& value) {
    if (s.compare(u"#TRUE#", Qt::CaseInsensitive) == 0) {
        value = true;
        return true;
    }
    if (s.compare(u"#FALSE#", Qt::CaseInsensitive) == 0) {
        value = false;
        return true;
    }
    return false;
}
}  // namespace

FieldReader::FieldReader(const QByteArray& content) {
    // Data files are plain text; one that is not valid UTF-8 is read as Latin-1,
    // so that a name with an accent from an older editor still reads. A byte
    // order mark in front is no part of the text either way.
    QStringDecoder utf8(QStringDecoder::Utf8);
    Text_ = utf8.decode(content);
    if (utf8.hasError()) {
        const QByteArray mark("\xEF\xBB\xBF");
        Text_ = QString::fromLatin1(content.startsWith(mark) ? content.mid(mark.size()) : content);
    }
}

bool FieldReader::AtLineEnd() const {
    return Pos_ < Text_.size() && (Text_[Pos_] == u'\n' || Text_[Pos_] == u'\r');
}

void FieldReader::SkipLineEnd() {
    if (Pos_ < Text_.size() && Text_[Pos_] == u'\r') ++Pos_;
    if (Pos_ < Text_.size() && Text_[Pos_] == u'\n') ++Pos_;
    ++Line_;
}

void FieldReader::SkipLine() {
    AfterComma_ = false;
    while (Pos_ < Text_.size() && !AtLineEnd())
        ++Pos_;
    if (Pos_ < Text_.size()) SkipLineEnd();
}

bool FieldReader::AtEnd() const {
    if (AfterComma_) return false;
    for (qsizetype i = Pos_; i < Text_.size(); ++i) {
        const QChar c = Text_[i];
        if (!IsBlank(c) && c != u'\n' && c != u'\r') return false;
    }
    return true;
}

bool FieldReader::ReadField(Field& out) {
    if (AtEnd()) return false;
    const bool announced = AfterComma_;
    AfterComma_ = false;
    if (announced && AtEnd()) {
        // Only blanks and line ends after a comma: the empty field it announced.
        out = Field();
        return true;
    }
    while (Pos_ < Text_.size() && IsBlank(Text_[Pos_]))
        ++Pos_;

    if (Text_[Pos_] == u'"') {
        const qsizetype start = ++Pos_;
        const int opened = Line_;
        while (Pos_ < Text_.size() && Text_[Pos_] != u'"') {
            if (Text_[Pos_] == u'\n') ++Line_;
            ++Pos_;
        }
        const QString text = Text_.mid(start, Pos_ - start);
        out = Field::Text(text).WrittenAs(text);
        bool runaway = Line_ != opened || Pos_ >= Text_.size();
        if (Pos_ >= Text_.size()) QuoteLeftOpenLine_ = opened;
        if (Pos_ < Text_.size()) ++Pos_;  // the closing quote
        // Anything between the closing quote and the separator is not part of
        // the field. A quote there means that this quote closed on the next
        // field's opening quote: its own closing quote is missing.
        while (Pos_ < Text_.size() && Text_[Pos_] != u',' && !AtLineEnd()) {
            if (Text_[Pos_] == u'"') runaway = true;
            ++Pos_;
        }
        if (runaway && RunawayQuoteLine_ == 0) RunawayQuoteLine_ = opened;
    } else {
        const qsizetype start = Pos_;
        while (Pos_ < Text_.size() && Text_[Pos_] != u',' && !AtLineEnd())
            ++Pos_;
        const QString raw = Text_.mid(start, Pos_ - start).trimmed();
        bool flag = false;
        bool isNumber = Field::LooksNumeric(raw);
        const double number = isNumber ? raw.toDouble(&isNumber) : 0;
        if (raw.isEmpty())
            out = Field();
        else if (isNumber)
            out = Field::Number(number).WrittenAs(raw);
        else if (ReadsAsFlag(raw, flag))
            out = Field::Flag(flag).WrittenAs(raw);
        else
            out = Field::Text(raw).WrittenAs(raw);
    }

    if (Pos_ < Text_.size()) {
        if (Text_[Pos_] == u',') {
            ++Pos_;
            AfterComma_ = true;
        } else {
            SkipLineEnd();
        }
    }
    return true;
}
