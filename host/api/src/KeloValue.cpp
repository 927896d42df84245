#include "KeloValue.h"
#include "KeloOAuth2.h"
#include "KeloTidalTypes.h"
#include <cmath>

namespace {
/// Doubles above this do not tell neighbouring integers apart.
constexpr double maxExactInteger = 9007199254740992.0;

/// Whether values of a type are no hashes themselves.
bool isPlainType(const QString& type)
{
    return type == KeloValue::Bool() || type == KeloValue::I64() || type == KeloValue::String() ||
           type == KeloValue::StringList();
}

bool isStringList(const QVariantList& list)
{
    for (const QVariant& element : list) {
        if (element.userType() != QMetaType::QString)
            return false;
    }
    return true;
}
} // namespace

KeloValue KeloValue::fromVariant(const QVariant& value)
{
    KeloValue result;
    switch (value.userType()) {
    case QMetaType::QVariantHash:
        return KeloValue(value.toHash());
    case QMetaType::Bool:
        result.setBool(value.toBool());
        break;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        result.setI64(value.toLongLong());
        break;
    case QMetaType::Double: {
        const double number = value.toDouble();
        if (std::trunc(number) == number && std::abs(number) <= maxExactInteger)
            result.setI64(qint64(number));
        break;
    }
    case QMetaType::QString:
        result.setString(value.toString());
        break;
    case QMetaType::QStringList:
        result.setStringList(value.toStringList());
        break;
    case QMetaType::QVariantList:
        if (isStringList(value.toList()))
            result.setStringList(value.toStringList());
        break;
    default:
        break;
    }
    return result;
}

KeloValue KeloValue::convertedTo(const QString& wanted) const
{
    const QVariant held = value(type());
    if (held.userType() == QMetaType::QVariantHash)
        return type() == wanted && !isPlainType(wanted) ? *this : KeloValue();
    // In the type that it really is of.
    KeloValue result = fromVariant(held);
    if (result.type() == wanted)
        return result;
    const QString text = result.string_();
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (wanted == I64() && isNumber)
        result.setI64(number);
    else if (wanted == Bool() && (text == QLatin1String("true") || text == QLatin1String("false")))
        result.setBool(text == QLatin1String("true"));
    else if (wanted == String() && result.type() == I64())
        result.setString(QString::number(result.i64_()));
    else
        result.clear();
    return result;
}

QVariant KeloValue::typed(const QString& wanted) const
{
    return type() == wanted ? value(wanted) : QVariant();
}

void KeloValue::setTyped(const QString& type, const QVariant& value)
{
    clear();
    insert(Type(), type);
    insert(type, value);
}

bool KeloValue::bool_() const
{
    return typed(Bool()).toBool();
}

qint64 KeloValue::i64_() const
{
    return typed(I64()).toLongLong();
}

QString KeloValue::string_() const
{
    return typed(String()).toString();
}

QStringList KeloValue::stringList() const
{
    return typed(StringList()).toStringList();
}

KeloMediaData KeloValue::mediaData() const
{
    return KeloMediaData(typed(MediaData()).toHash());
}

KeloOAuth2Info KeloValue::oauth2Info() const
{
    return KeloOAuth2Info(typed(OAuth2Info()).toHash());
}

KeloTidalSettings KeloValue::tidalSettings() const
{
    return KeloTidalSettings(typed(TidalSettings()).toHash());
}

KeloTidalSoundQuality KeloValue::tidalSoundQuality() const
{
    return KeloTidalSoundQuality(typed(TidalSoundQuality()).toHash());
}

void KeloValue::setBool(bool value)
{
    setTyped(Bool(), value);
}

void KeloValue::setI64(qint64 value)
{
    setTyped(I64(), value);
}

void KeloValue::setString(const QString& value)
{
    setTyped(String(), value);
}

void KeloValue::setStringList(const QStringList& value)
{
    setTyped(StringList(), value);
}

void KeloValue::setMediaData(const KeloMediaData& value)
{
    setTyped(MediaData(), value.toVariant());
}

void KeloValue::setOauth2Info(const KeloOAuth2Info& value)
{
    setTyped(OAuth2Info(), value.toVariant());
}

void KeloValue::setTidalSettings(const KeloTidalSettings& value)
{
    setTyped(TidalSettings(), value.toVariant());
}

void KeloValue::setTidalSoundQuality(const KeloTidalSoundQuality& value)
{
    setTyped(TidalSoundQuality(), value.toVariant());
}
