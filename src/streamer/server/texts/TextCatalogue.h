#pragma once
#include <QHash>
#include <QMap>
#include <QTranslator>

class QIODevice;

/// The program's texts in one language: those of the module and the host, by context and English
/// text, and those of the web page. Owned by TextCatalogues; only read once it is filled, so any
/// thread may ask. It is not installed in Qt: the process itself speaks English, and each client
/// its own language.
class TextCatalogue : public QTranslator
{
public:
    /// Empty: every text stays as it is.
    explicit TextCatalogue(const QString& language) : m_language(language) {}

    /// Adds the finished entries of a catalogue in Qt Linguist's form; false when it is malformed.
    bool add(QIODevice& file);

    /// The language's tag, such as "de".
    const QString& language() const { return m_language; }
    /// Null when there is no such entry; then the built-in text stands.
    QString translate(const char* context, const char* source, const char* comment = nullptr,
                      int n = -1) const override;
    bool isEmpty() const override { return m_texts.isEmpty(); }
    /// An English text without its context: looked up in every one. Itself when there is none. Not
    /// for texts of the service, which may be equal to one of ours and mean something else.
    QString plain(const QString& text) const { return m_plain.value(text, text); }
    /// The web page's texts by their English ones.
    const QMap<QString, QString>& pageTexts() const { return m_pageTexts; }

private:
    void add(const QString& context, const QString& source, const QString& comment,
             const QString& translation);

    QString m_language;
    QHash<QByteArray, QString> m_texts;
    QHash<QString, QString> m_plain;
    QMap<QString, QString> m_pageTexts;
};
