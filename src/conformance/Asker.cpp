#include "Asker.h"

#include <kelo/CMRoot.h>

const QStringList& Asker::roles()
{
    static const QStringList roles{KeloRoles::Path(), KeloRoles::Type(), KeloRoles::Title(),
                                   KeloRoles::MediaData(), KeloRoles::SearchPath()};
    return roles;
}

QStringList Page::paths() const
{
    QStringList paths;
    for (const KeloRoles& row : rows)
        paths.append(row.toHash().value(KeloRoles::Path()).toString());
    return paths;
}

void Asker::await(const CMRequest& request)
{
    ++m_count;
    CMRoot().request(request);
    request.reply().waitForFinished(-1); // no longer than its deadline
    const QString name = request.reply().error().name();
    if (name == CMError::DeadlineName())
        m_findings.fault(checkName(), request.toString() + QStringLiteral(": no answer in time"));
    else if (name == CMError::NoAnswerName())
        m_findings.fault(checkName(), request.toString() + QStringLiteral(": it was forgotten"));
}

Page Asker::rows(const CMPath& path, int from, int to)
{
    const CMGetRowsRequest request(path, from, to, roles());
    await(request);
    return read(request);
}

Page Asker::read(const CMGetRowsRequest& request)
{
    Page page;
    page.error = request.reply().error();
    if (page.error.isSet())
        return page;
    const KeloRowsRoles answer = request.reply().value();
    page.count = answer.rowsCount();
    page.version = answer.rowsVersion();
    const QVariantList rows = answer.rows().toList();
    for (const QVariant& row : rows) {
        const QVariantList values = row.toList();
        if (values.size() != roles().size())
            m_findings.fault(QStringLiteral("rows"),
                             QStringLiteral("%1: a row of %2 values for %3 roles")
                                 .arg(request.toString())
                                 .arg(values.size())
                                 .arg(roles().size()));
        KeloRoles read;
        for (int i = 0; i < values.size() && i < roles().size(); ++i) {
            if (values[i].isValid())
                read.insert(roles()[i], values[i]);
        }
        page.rows.append(read);
    }
    return page;
}

CMError Asker::data(const CMPath& path)
{
    const CMGetDataRequest request(path, roles());
    await(request);
    const CMError error = request.reply().error();
    const int size = request.reply().value().size();
    if (!error.isSet() && size != roles().size())
        m_findings.fault(QStringLiteral("rows"), QStringLiteral("%1: %2 values for %3 roles")
                                                     .arg(request.toString())
                                                     .arg(size)
                                                     .arg(roles().size()));
    return error;
}

CMError Asker::set(const CMPath& path, const QString& role, const QVariant& value)
{
    const CMSetDataRequest request(path, role, value);
    await(request);
    return request.reply().error();
}
