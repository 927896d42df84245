#pragma once
#include "Findings.h"
#include <atomic>
#include <kelo/CMRequest.h>

/// A page of rows, as the module answered.
struct Page
{
    CMError error;
    int count = 0;
    int version = 0;
    QList<KeloRoles> rows;

    bool isAnswered() const { return !error.isSet(); }
    /// The paths of the rows, encoded.
    QStringList paths() const;
};

/// Sends requests to the tree as a client does, waits for the answers, and notes those that the
/// module left to the host. Owned by Conformance. Any thread.
class Asker
{
public:
    static const QStringList& roles();
    static QString checkName() { return QStringLiteral("answers"); }

    explicit Asker(Findings& findings) : m_findings(findings) {}

    Page rows(const CMPath& path, int from, int to);
    /// The error that a data request ends with; not set when it ends with a value.
    CMError data(const CMPath& path);
    CMError set(const CMPath& path, const QString& role, const QVariant& value);
    int count() const { return m_count; }

private:
    void await(const CMRequest& request);
    Page read(const CMGetRowsRequest& request);

    Findings& m_findings;
    std::atomic<int> m_count{0};
};
