#include "RandomToken.h"

#include <QByteArray>
#include <QRandomGenerator>

std::string randomToken()
{
    quint32 words[8];
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char*>(words), sizeof words).toHex().toStdString();
}
