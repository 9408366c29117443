#include "core/scripteddialogs.h"

bool ScriptedDialogs::Ask(const QString& text) {
    Transcript_.push_back({Kind::Question, AppTitle, text, {}});
    if (Answers_.empty()) {
        ++Unanswered_;
        return false;
    }
    const bool yes = Answers_.front();
    Answers_.pop_front();
    return yes;
}

void ScriptedDialogs::Inform(const QString& text) {
    Transcript_.push_back({Kind::Information, AppTitle, text, {}});
}

void ScriptedDialogs::Warn(const QString& text) {
    Transcript_.push_back({Kind::Warning, AppTitle, text, {}});
}

QString ScriptedDialogs::OpenFile(const QString& title, const QString& folder) {
    Transcript_.push_back({Kind::OpenFile, title, title, folder});
    if (Files_.empty()) {
        ++Unanswered_;
        return QString();
    }
    const QString path = Files_.front();
    Files_.pop_front();
    return path;
}

QString ScriptedDialogs::SaveFile(const QString& title, const QString& folder) {
    Transcript_.push_back({Kind::SaveFile, title, title, folder});
    if (Files_.empty()) {
        ++Unanswered_;
        return QString();
    }
    const QString path = Files_.front();
    Files_.pop_front();
    return path;
}

void ScriptedDialogs::Beep() {
    Transcript_.push_back({Kind::Beep, {}, {}, {}});
}

int ScriptedDialogs::Count(const QString& text) const {
    int n = 0;
    for (const auto& r : Transcript_)
        n += r.text == text;
    return n;
}

int ScriptedDialogs::Count(Kind kind) const {
    int n = 0;
    for (const auto& r : Transcript_)
        n += r.kind == kind;
    return n;
}

QStringList ScriptedDialogs::Texts() const {
    QStringList texts;
    for (const auto& r : Transcript_)
        texts << r.text;
    return texts;
}

void ScriptedDialogs::Clear() {
    Answers_.clear();
    Files_.clear();
    Transcript_.clear();
    Unanswered_ = 0;
}
