#pragma once
#include <chrono>
#include <QByteArray>
#include <vector>

/// The process that the module runs in: this program anew, in a process group of its own. What it
/// started goes with it. Owned by main, used on its thread; one in the program.
class Child
{
public:
    /// Starts the program with a first argument that ends with the descriptor to report to.
    Child(const char* mark, const std::vector<char*>& arguments);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// All that it reports until it has ended, whoever else may hold the pipe by then; it is killed
    /// when its time is over.
    QByteArray follow(std::chrono::seconds limit);
    /// How it ended, when it has not ended in order: "Segmentation fault"; empty when it has.
    QString fault() const;

private:
    bool hasEnded();

    int m_pid = 0;      ///< its group's as well; not above 0: it could not be started
    int m_report = -1;  ///< the pipe's end
    int m_signals = -1; ///< tells of the child's end
    int m_status = -1;
    bool m_isLate = false;
};
