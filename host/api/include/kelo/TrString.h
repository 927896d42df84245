#pragma once
#include "KeloExport.h"
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>

class QTranslator;

/// The translation context of a text: the full signature of the function that makes it, as the
/// compiler prints Q_FUNC_INFO; catalogues have GCC's way and are turned for others when they are built.
constexpr const char* trExtractContext(const char* signature)
{
    return signature;
}

/// Source of a translatable text: its context, its English text and, where two equal texts need
/// telling apart, a comment. The three point to static texts and are not owned.
struct KELO_EXPORT TrCharData
{
    const char* context = nullptr;
    const char* text = nullptr;
    const char* comment = nullptr;
};

/// Shorthand for a translatable text whose context is the enclosing function.
#define KELO_TR(text) TrString(TrCharData{trExtractContext(Q_FUNC_INFO), text, nullptr})

/// A text that is translated when it is read: source text, context and arguments for %1, %2, ...,
/// which are such texts themselves, or a plain text that is shown as it is. It travels in replies
/// as it is, so that each client gets it in a language of its own; who reads it as a QString, from
/// a variant too, gets it in the process's language. A value type; translators are only read, so
/// any thread may ask.
class KELO_EXPORT TrString
{
public:
    TrString() = default;
    /// A text that is never translated.
    TrString(const QString& text);
    TrString(const TrCharData& source, const QList<TrString>& arguments = {});
    /// A text in a context that has a name of its own.
    static TrString in(const char* context, const char* text, const QList<TrString>& arguments = {})
    {
        return TrString(TrCharData{context, text, nullptr}, arguments);
    }
    /// What toVariant() made, or any text.
    static TrString fromVariant(const QVariant& value);

    bool isEmpty() const;
    /// Whether a translator has a say in it; plain texts are never translated.
    bool isTranslatable() const { return m_source.text != nullptr; }
    /// The text in the process's language (QCoreApplication::translate).
    QString toString() const;
    /// The text as this translator has it; the English one where it has none.
    QString toString(const QTranslator& translator) const;
    /// For a role: a variant of this, or of a QString when the text is plain.
    QVariant toVariant() const;
    /// The English text with its arguments.
    QString source() const;

    bool operator==(const TrString& other) const;
    bool operator!=(const TrString& other) const { return !(*this == other); }

private:
    template <class Read>
    QString filled(const QString& form, const Read& read) const;

    TrCharData m_source;
    QString m_text;
    QList<TrString> m_arguments;
};

/// Translation at once.
class KELO_EXPORT Language
{
public:
    /// The text in the process's language, translated now.
    static QString ntr(const char* text, const char* context, const char* comment = nullptr);
    static QString ntr(const QString& text, const char* context);
};

Q_DECLARE_METATYPE(TrString)
