#pragma once
#include "KeloHash.h"
#include "KeloMediaData.h"
#include "KeloNames.h"
#include <QStringList>

class KeloOAuth2Info;
class KeloTidalSettings;
class KeloTidalSoundQuality;

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

    bool bool_() const;
    qint64 i64_() const;
    QString string_() const;
    QStringList stringList() const;
    KeloMediaData mediaData() const;
    KeloOAuth2Info oauth2Info() const;
    KeloTidalSettings tidalSettings() const;
    KeloTidalSoundQuality tidalSoundQuality() const;

    void setBool(bool value);
    void setI64(qint64 value);
    void setString(const QString& value);
    void setStringList(const QStringList& value);
    void setMediaData(const KeloMediaData& value);
    void setOauth2Info(const KeloOAuth2Info& value);
    void setTidalSettings(const KeloTidalSettings& value);
    void setTidalSoundQuality(const KeloTidalSoundQuality& value);

private:
    QVariant typed(const QString& type) const;
    void setTyped(const QString& type, const QVariant& value);
};

Q_DECLARE_METATYPE(KeloValue)
