#include "KeloValue.h"
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
