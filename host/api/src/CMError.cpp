#include "CMError.h"

#define KELO_ERROR_NAME(function, text)                                                            \
    const QString& CMError::function()                                                             \
    {                                                                                              \
        static const QString name = QStringLiteral(text);                                          \
        return name;                                                                               \
    }

KELO_ERROR_NAME(Name, "name")
KELO_ERROR_NAME(Title, "title")
KELO_ERROR_NAME(Message, "message")
KELO_ERROR_NAME(DefaultName, "Error")
KELO_ERROR_NAME(DefaultTitle, "Error")
KELO_ERROR_NAME(NotFoundName, "NotFound")
KELO_ERROR_NAME(DeadlineName, "Deadline")
KELO_ERROR_NAME(NoAnswerName, "NoAnswer")
KELO_ERROR_NAME(BadRequestName, "BadRequest")

CMError::CMError(const TrString& message) : CMError(DefaultName(), message) {}

CMError::CMError(const QString& name, const TrString& message)
    : CMError(name, TrString(DefaultTitle()), message)
{
}

CMError::CMError(const QString& name, const TrString& title, const TrString& message)
{
    insert(Name(), name);
    insert(Title(), title.toVariant());
    insert(Message(), message.toVariant());
}

CMError CMError::nothingAt(const QString& encodedPath)
{
    return CMError(
        NotFoundName(),
        TrString(TrCharData{"CMError", "There is nothing at %1", nullptr}, {encodedPath}));
}

bool CMError::isSet() const
{
    return !name().isEmpty();
}

QString CMError::name() const
{
    return value(Name()).toString();
}

QString CMError::title() const
{
    return value(Title()).toString();
}

QString CMError::message() const
{
    return value(Message()).toString();
}
