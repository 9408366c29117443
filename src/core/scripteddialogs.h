#pragma once

#include <QString>
#include <QStringList>
#include <deque>
#include <vector>

#include "core/dialogs.h"

// A dialog service that answers from a script and keeps a transcript of every
// dialog shown, for tests.
class ScriptedDialogs : public DialogService {
public:
    enum class Kind { Question, Information, Warning, OpenFile, SaveFile, Beep };
    struct Record {
        Kind kind;
        QString title;
        QString text;  // the message, or the title of a file chooser
        QString folder;
    };

    // Queues the answers to the coming questions and file choosers, in order.
    void AnswerYes() { Answers_.push_back(true); }
    void AnswerNo() { Answers_.push_back(false); }
    void ChooseFile(const QString& path) { Files_.push_back(path); }
    void CancelFile() { Files_.push_back(QString()); }

    bool Ask(const QString& text) override;
    void Inform(const QString& text) override;
    void Warn(const QString& text) override;
    QString OpenFile(const QString& title, const QString& folder) override;
    QString SaveFile(const QString& title, const QString& folder) override;
    void Beep() override;

    const std::vector<Record>& Transcript() const { return Transcript_; }
    // How often a text was shown, in any kind of dialog.
    int Count(const QString& text) const;
    int Count(Kind kind) const;
    // The texts shown, in order, for a readable failure message.
    QStringList Texts() const;
    // Dialogs that came with no scripted answer left. They are answered No or
    // cancelled; a test should expect none.
    int Unanswered() const { return Unanswered_; }
    bool ScriptUsedUp() const { return Answers_.empty() && Files_.empty(); }
    void Clear();

private:
    std::deque<bool> Answers_;
    std::deque<QString> Files_;
    std::vector<Record> Transcript_;
    int Unanswered_ = 0;
};
