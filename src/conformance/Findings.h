#pragma once
#include <map>
#include <mutex>
#include <QString>
#include <QStringList>

/// How one check ended.
struct Finding
{
    QString check;
    QString result; ///< "pass", "FAIL" or "skip"
    QString detail;
};

/// What the checks find, written line by line to a file descriptor, so that it is known when the
/// module ends the process. Owned by the child process's main. Any thread.
class Findings
{
public:
    explicit Findings(int descriptor) : m_descriptor(descriptor) {}

    /// What runs now, and to what: the check that a crash belongs to.
    void begin(const QString& check, const QString& detail = QString());
    /// A check may have any number of faults, also before it begins.
    void fault(const QString& check, const QString& what);
    /// The check fails when it has a fault, with the first one as its detail.
    void end(const QString& check, const QString& summary);
    void skip(const QString& check, const QString& why);
    /// All checks are through.
    void complete();

private:
    void write(const char* kind, const Finding& finding);

    const int m_descriptor;
    std::mutex m_mutex; ///< guards what follows
    std::map<QString, QStringList> m_faults;
};
