#pragma once
#include "KeloExport.h"
#include <QMetaType>
#include <QString>
#include <QStringList>

/// The translation context of a text: the full signature of the function that makes it, as GCC
/// prints Q_FUNC_INFO.
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
/// or a plain text that is shown as it is. Qt's translators answer (QCoreApplication::translate).
/// A value type.
class KELO_EXPORT TrString
{
public:
    TrString() = default;
    /// A text that is never translated.
    TrString(const QString& text);
    TrString(const TrCharData& source, const QStringList& arguments = QStringList());

    bool isEmpty() const;
    /// The text in the present language.
    QString toString() const;
    /// The English text with its arguments.
    QString source() const;

private:
    TrCharData m_source;
    QString m_text;
    QStringList m_arguments;
};

/// Translation at once.
class KELO_EXPORT Language
{
public:
    /// The text in the present language, translated now.
    static QString ntr(const char* text, const char* context, const char* comment = nullptr);
    static QString ntr(const QString& text, const char* context);
};

Q_DECLARE_METATYPE(TrString)
