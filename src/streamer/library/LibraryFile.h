#pragma once
#include <QFile>

/// The file of a shared library, read without loading it, so that nothing of it runs. Believes
/// nothing that the file says of itself. Used on one thread.
class LibraryFile
{
public:
    explicit LibraryFile(const QString& file);

    /// Why this machine cannot load it, as the end of a sentence; empty when it may be tried.
    const QString& reason() const { return m_reason; }
    /// The text that an exported symbol names, up to its zero, of at most 64 characters; null when
    /// there is no such symbol or no text.
    QByteArray text(const char* symbol) const;

private:
    QString findReason();
    /// So many bytes from there on; null when the file has less.
    const uchar* bytes(quint64 offset, quint64 size) const;
    /// The zero-ended text at a place; null when it is longer than `limit`.
    QByteArray textAt(quint64 offset, int limit) const;
    /// A table of the file, entry by entry; false when the file has less, or the step said so.
    template <class Entry, class Step>
    bool each(quint64 offset, quint64 count, Step step) const;
    /// Where in the file something stands that is loaded to that address.
    quint64 offsetOf(quint64 address) const;

    QFile m_file;
    const uchar* m_bytes = nullptr; ///< the mapped file; null when it is not to be read
    QString m_reason;
};
