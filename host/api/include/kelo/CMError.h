#pragma once
#include "KeloHash.h"
#include "TrString.h"

/// Error of a request: a name (the domain that raised it), a title and a message for people; both
/// stay translatable inside (KeloHash::value gives a TrString, title() and message() the process's
/// language). It is set when its name is present and not empty.
class KELO_EXPORT CMError : public KeloHash
{
public:
    static const QString& Name();
    static const QString& Title();
    static const QString& Message();
    static const QString& DefaultName();
    static const QString& DefaultTitle();
    /// Name of the error that says that no node stands at a path.
    static const QString& NotFoundName();
    /// Name of the error that a request gets when nobody answered it in time.
    static const QString& DeadlineName();
    /// Name of the error that a request gets when nobody is left who could answer it.
    static const QString& NoAnswerName();
    /// Name of the error that says that the request itself is malformed.
    static const QString& BadRequestName();

    /// An error that is not set.
    CMError() = default;
    explicit CMError(const KeloHash& hash) : KeloHash(hash) {}
    /// An error of default name and title.
    explicit CMError(const TrString& message);
    CMError(const QString& name, const TrString& message);
    CMError(const QString& name, const TrString& title, const TrString& message);

    /// The error that says that no node stands at a path.
    static CMError nothingAt(const QString& encodedPath);

    bool isSet() const;
    QString name() const;
    QString title() const;
    QString message() const;
};

Q_DECLARE_METATYPE(CMError)
