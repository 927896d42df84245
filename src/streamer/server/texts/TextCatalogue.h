#pragma once
#include <QHash>
#include <QMap>
#include <QTranslator>
#include <QVector>

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
    /// A text that was put into English words before it was known for whom, its arguments included:
    /// looked up in every context. Itself when there is none. Not for texts of the service, which
    /// may be equal to one of ours and mean something else.
    QString plain(const QString& text) const;
    /// The same for one such text or several with "; " between.
    QString plainList(const QString& texts) const;
    /// The web page's texts by their English ones.
    const QMap<QString, QString>& pageTexts() const { return m_pageTexts; }

private:
    /// A text with places for arguments: what stands around them, and the translation.
    struct Pattern
    {
        QStringList pieces;   ///< one more than places
        QVector<int> numbers; ///< of the places in order
        QString comment;      ///< names the places that hold texts of ours
        QString translation;

        int size() const { return pieces.join(QString()).size(); }
    };
    using Arguments = QMap<int, QString>;

    void add(const QString& context, const QString& source, const QString& comment,
             const QString& translation);
    void addPlain(const QString& source, const QString& comment, const QString& translation);
    /// The arguments of a text of this form by their numbers; none for any other text.
    static Arguments argumentsOf(const QString& text, const Pattern& pattern);
    QString filled(const Pattern& pattern, const Arguments& arguments) const;

    QString m_language;
    QHash<QByteArray, QString> m_texts;
    QHash<QString, QString> m_plain;
    QVector<Pattern> m_patterns; ///< those that say most first
    QMap<QString, QString> m_pageTexts;
};
