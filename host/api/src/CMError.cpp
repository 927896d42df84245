#include "CMError.h"

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
