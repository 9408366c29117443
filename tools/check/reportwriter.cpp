#include "check/reportwriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Check {

namespace {
QString Place(const Finding& finding) {
    QString place = finding.File;
    if (finding.Row >= 0) {
        place += QStringLiteral(", row %1").arg(finding.Row);
        if (!finding.Name.isEmpty()) place += QStringLiteral(" \"%1\"").arg(finding.Name);
    }
    if (finding.Column >= 0) {
        place += QStringLiteral(", column %1").arg(finding.Column);
        if (!finding.ColumnName.isEmpty()) place += QStringLiteral(" (%1)").arg(finding.ColumnName);
    }
    return place;
}

QJsonValue NumberOrNull(int value) {
    return value < 0 ? QJsonValue() : QJsonValue(value);
}
}  // namespace

QString ReportText(const CheckReport& report) {
    QString text;
    for (const Unreadable& file : report.Unreadables)
        text += QStringLiteral("%1: cannot be read: %2\n").arg(file.File, file.Message);
    for (const Finding& finding : report.Findings) {
        // Only a finding that not every version checked has names its versions.
        if (!finding.Versions.isEmpty())
            text += QStringLiteral("[%1] ").arg(finding.Versions.join(QStringLiteral(", ")));
        text += QStringLiteral("%1: %2\n").arg(Place(finding), finding.What);
    }
    return text;
}

QByteArray ReportJson(const CheckReport& report) {
    QJsonArray unreadable;
    for (const Unreadable& file : report.Unreadables)
        unreadable.append(QJsonObject{{QStringLiteral("file"), file.File},
                                      {QStringLiteral("message"), file.Message}});
    QJsonArray findings;
    for (const Finding& finding : report.Findings) {
        const QStringList versions =
            finding.Versions.isEmpty() ? report.Versions : finding.Versions;
        findings.append(QJsonObject{
            {QStringLiteral("file"), finding.File},
            {QStringLiteral("row"), NumberOrNull(finding.Row)},
            {QStringLiteral("name"), finding.Name},
            {QStringLiteral("column"), NumberOrNull(finding.Column)},
            {QStringLiteral("columnName"), finding.ColumnName},
            {QStringLiteral("message"), finding.What},
            {QStringLiteral("versions"), QJsonArray::fromStringList(versions)},
        });
    }
    const QJsonObject root{
        {QStringLiteral("versions"), QJsonArray::fromStringList(report.Versions)},
        {QStringLiteral("status"), report.ExitStatus()},
        {QStringLiteral("unreadable"), unreadable},
        {QStringLiteral("findings"), findings},
    };
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

}  // namespace Check
