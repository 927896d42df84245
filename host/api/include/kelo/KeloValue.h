#pragma once
#include "KeloHash.h"
#include "KeloMediaData.h"
#include "KeloOAuth2.h"
#include "KeloTidalTypes.h"
#include <QStringList>

/// A typed value in a hash: the key "type" holds the type's name, and the key of that name the
/// value itself, for example {"type":"string_","string_":"Asc"}. A reader of another type yields
/// that type's empty value.
class KELO_EXPORT KeloValue : public KeloHash
{
public:
    KELO_NAME(Type, "type")
    KELO_NAME(Bool, "bool_")
    KELO_NAME(I64, "i64_")
    KELO_NAME(String, "string_")
    KELO_NAME(StringList, "stringList_")
    KELO_NAME(MediaData, "mediaData")
    KELO_NAME(OAuth2Info, "oauth2Info")
    KELO_NAME(TidalSettings, "tidalSettings")
    KELO_NAME(TidalSoundQuality, "tidalSoundQuality")

    KeloValue() = default;
    KeloValue(const KeloHash& hash) : KeloHash(hash) {}
    /// The value of a variant: a hash as it is, a bool, integer, string or list of strings wrapped.
    static KeloValue fromVariant(const QVariant& value);
    /// The type's name; empty where there is no value.
    QString type() const { return value(Type()).toString(); }
    /// The same as a value of a type, where nothing of it is lost: "4" as 4, 1984 as "1984", "true"
    /// as true. Empty where something would be, and where the hash does not hold what it says.
    KeloValue convertedTo(const QString& type) const;

#define KELO_VALUE(Value, reader, setter, Name)                                                    \
    Value reader() const                                                                           \
    {                                                                                              \
        return KeloField<Value>::read(type() == Name() ? value(Name()) : QVariant());              \
    }                                                                                              \
    void setter(KeloArgument<Value> held)                                                          \
    {                                                                                              \
        clear();                                                                                   \
        insert(Type(), Name());                                                                    \
        insert(Name(), KeloField<Value>::written(held));                                           \
    }
    KELO_VALUE(bool, bool_, setBool, Bool)
    KELO_VALUE(qint64, i64_, setI64, I64)
    KELO_VALUE(QString, string_, setString, String)
    KELO_VALUE(QStringList, stringList, setStringList, StringList)
    KELO_VALUE(KeloMediaData, mediaData, setMediaData, MediaData)
    KELO_VALUE(KeloOAuth2Info, oauth2Info, setOauth2Info, OAuth2Info)
    KELO_VALUE(KeloTidalSettings, tidalSettings, setTidalSettings, TidalSettings)
    KELO_VALUE(KeloTidalSoundQuality, tidalSoundQuality, setTidalSoundQuality, TidalSoundQuality)
#undef KELO_VALUE
};

Q_DECLARE_METATYPE(KeloValue)
