#pragma once
#include "KeloHash.h"
#include "KeloNames.h"
#include "TrString.h"

/// Error of a request: a name (the domain that raised it), a title and a message for people; both
/// stay translatable inside (KeloHash::value gives a TrString, title() and message() the process's
/// language). It is set when its name is present and not empty.
class KELO_EXPORT CMError : public KeloHash
{
public:
    KELO_NAME(Name, "name")
    KELO_NAME(Title, "title")
    KELO_NAME(Message, "message")
    KELO_NAME(DefaultName, "Error")
    KELO_NAME(DefaultTitle, "Error")
    /// Name of the error that says that no node stands at a path.
    KELO_NAME(NotFoundName, "NotFound")
    /// Name of the error that a request gets when nobody answered it in time.
    KELO_NAME(DeadlineName, "Deadline")
    /// Name of the error that a request gets when nobody is left who could answer it.
    KELO_NAME(NoAnswerName, "NoAnswer")
    /// Name of the error that says that the request itself is malformed.
    KELO_NAME(BadRequestName, "BadRequest")

    /// An error that is not set.
    CMError() = default;
    explicit CMError(const KeloHash& hash) : KeloHash(hash) {}
    /// An error of default name and title.
    explicit CMError(const TrString& message);
    CMError(const QString& name, const TrString& message);
    CMError(const QString& name, const TrString& title, const TrString& message);

    /// The error that says that no node stands at a path.
    static CMError nothingAt(const QString& encodedPath);

    bool isSet() const { return !name().isEmpty(); }
    QString name() const { return value(Name()).toString(); }
    QString title() const { return value(Title()).toString(); }
    QString message() const { return value(Message()).toString(); }
};

Q_DECLARE_METATYPE(CMError)
