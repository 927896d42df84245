#pragma once
#include <QString>

/// A file of the program's state, readable by the owner alone, that is replaced as a whole: the new
/// content goes to a draft beside it, NAME.new, which takes its place once it is on disk. Whoever
/// reads finds the old content or the new one, whenever the program ends. A plain value; one thread
/// at a time writes.
class KeptFile
{
public:
    explicit KeptFile(const QString& name) : m_name(name) {}

    /// Makes a folder that is not there, of the owner's alone. False with the reason in `error`.
    [[nodiscard]] static bool makeFolder(const QString& name, QString* error);

    const QString& name() const { return m_name; }
    /// On disk when it returns true; else the reason is in `error`, and the old content stands
    /// unless the folder alone could not be brought to the disk.
    [[nodiscard]] bool write(const QByteArray& bytes, QString* error) const;
    /// Removes the draft that an end in the middle of write() left, and nothing else. For the
    /// start, before anything is written.
    void removeDraft() const;
    /// Removes the file, and a draft of it. False with the reason in `error`; a file that is not
    /// there is no failure.
    bool remove(QString* error) const;

private:
    QString draftName() const { return m_name + QStringLiteral(".new"); }
    bool syncFolder() const;

    QString m_name;
};
