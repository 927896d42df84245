#include "JsonText.h"

#include "texts/TextCatalogue.h"

#include <cmath>
#include <kelo/KeloRoles.h>
#include <kelo/KeloValue.h>
#include <kelo/TrString.h>
#include <QJsonDocument>

namespace {

constexpr int deepest = 64;

} // namespace

JsonText::JsonText(const TextCatalogue* texts)
    : m_texts(texts && !texts->isEmpty() ? texts : nullptr)
{
}

/// What the host's own types hold inside a variant.
QVariant JsonText::unwrapped(const QVariant& value) const
{
    const int type = value.userType();
    if (type < QMetaType::User)
        return value;
    if (type == qMetaTypeId<CMPath>())
        return value.value<CMPath>().toEncoded();
    if (type == qMetaTypeId<TrString>())
        return m_texts ? value.value<TrString>().toString(*m_texts) : value.toString();
    if (type == qMetaTypeId<KeloHash>())
        return value.value<KeloHash>().toVariant();
    if (type == qMetaTypeId<KeloValue>())
        return value.value<KeloValue>().toVariant();
    if (type == qMetaTypeId<KeloRoles>())
        return value.value<KeloRoles>().toVariant();
    if (type == qMetaTypeId<KeloMediaData>())
        return value.value<KeloMediaData>().toVariant();
    return QVariant();
}

void JsonText::key(const QString& name)
{
    const QByteArray utf8 = name.toUtf8();
    m_writer.Key(utf8.constData(), rapidjson::SizeType(utf8.size()));
}

void JsonText::string(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    m_writer.String(utf8.constData(), rapidjson::SizeType(utf8.size()));
}

void JsonText::role(const QString& role, const QVariant& value)
{
    const bool isNumber = value.userType() == QMetaType::Int;
    if (isNumber && role == KeloRoles::Type())
        string(KeloRolesType::toString(value.toInt()));
    else if (isNumber && role == KeloRoles::ContainerType())
        string(KeloRolesContainerType::toString(value.toInt()));
    else
        write(value, 0);
}

void JsonText::heading(const QVariant& title)
{
    if (m_texts && title.userType() == QMetaType::QString)
        string(m_texts->plain(title.toString()));
    else
        write(title, 0);
}

void JsonText::field(const char* name, const QVariant& value)
{
    m_writer.Key(name);
    write(value, 0);
}

void JsonText::roles(const char* name, const QVariantHash& roles)
{
    QStringList names = roles.keys();
    names.sort();
    m_writer.Key(name);
    beginObject();
    for (const QString& role : qAsConst(names)) {
        const QVariant value = roles.value(role);
        if (!value.isValid())
            continue;
        key(role);
        this->role(role, value);
    }
    endObject();
}

template <class Map>
void JsonText::writeMap(const Map& map, QStringList keys, int depth)
{
    keys.sort();
    m_writer.StartObject();
    for (const QString& name : qAsConst(keys)) {
        key(name);
        write(map.value(name), depth + 1);
    }
    m_writer.EndObject();
}

bool JsonText::writePlain(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return m_writer.Bool(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::Long:
        return m_writer.Int64(value.toLongLong());
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::ULong:
        return m_writer.Uint64(value.toULongLong());
    case QMetaType::Double:
    case QMetaType::Float:
        return std::isfinite(value.toDouble()) && m_writer.Double(value.toDouble());
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QUrl:
        string(value.toString());
        return true;
    default:
        return false;
    }
}

void JsonText::write(const QVariant& wrapped, int depth)
{
    const QVariant value = unwrapped(wrapped);
    if (writePlain(value))
        return;
    const int type = value.userType();
    if (depth < deepest && type == QMetaType::QVariantHash) {
        const QVariantHash hash = value.toHash();
        writeMap(hash, hash.keys(), depth);
    } else if (depth < deepest && type == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        writeMap(map, map.keys(), depth);
    } else if (depth < deepest &&
               (type == QMetaType::QVariantList || type == QMetaType::QStringList)) {
        m_writer.StartArray();
        const QVariantList list = value.toList();
        for (const QVariant& element : list)
            write(element, depth + 1);
        m_writer.EndArray();
    } else {
        m_writer.Null();
    }
}

std::string JsonText::fromObject(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}
