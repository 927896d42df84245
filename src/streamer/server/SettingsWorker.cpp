#include "SettingsWorker.h"

#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloTidalTypes.h>

namespace {

KeloValue qualityValue(int number)
{
    KeloValue value;
    if (number < 0 || number >= KeloTidalSoundQualities::words().size())
        return value;
    KeloTidalSoundQuality quality;
    quality.setSoundQuality(KeloTidalSoundQualities::Enum(number));
    value.setTidalSoundQuality(quality);
    return value;
}

/// Takes the setting's own type, a word or a number.
KeloValue readQuality(const KeloValue& sent)
{
    const QString type = sent.value(KeloValue::Type()).toString();
    if (type == KeloValue::TidalSoundQuality()) {
        const KeloTidalSoundQuality quality = sent.tidalSoundQuality();
        return quality.contains(KeloTidalSoundQuality::SoundQuality())
                   ? qualityValue(quality.soundQuality())
                   : KeloValue();
    }
    if (type == KeloValue::String())
        return qualityValue(KeloTidalSoundQualities::words().indexOf(sent.string_().toUpper()));
    if (type == KeloValue::I64() && sent.i64_() >= 0 &&
        sent.i64_() < KeloTidalSoundQualities::words().size())
        return qualityValue(int(sent.i64_()));
    return KeloValue();
}

/// Takes what readQuality() reads and refuses everything else. Serves on the caller's thread.
class QualityNode : public CMValueNode
{
public:
    using CMValueNode::CMValueNode;

    bool setDataRequest(const CMSetDataRequest& request) override
    {
        if (!isOwnPath(request.path()))
            return replyNotFound(request);
        const KeloValue value = readQuality(KeloValue::fromVariant(request.value()));
        if (value.isEmpty()) {
            const QString words = KeloTidalSoundQualities::words().join(QStringLiteral(", "));
            request.reply().setError(
                CMError(CMError::BadRequestName(), QStringLiteral("wanted %1").arg(words)));
        } else {
            setValue(value);
            request.reply().setValue(QVariant());
        }
        return true;
    }
};

KeloValue stringValue(const QString& text)
{
    KeloValue value;
    value.setString(text);
    return value;
}

KeloTidalSettings tidalValue(const TidalSettings& from)
{
    KeloTidalSettings to;
    to.setApiUrl(from.apiUrl);
    to.setCountryCode(from.countryCode);
    to.setImageUrl(from.imageUrl);
    to.setImageSize(from.imageSize);
    to.setImageSizeArtist(from.imageSizeArtist);
    to.setImageSizePlaylist(from.imageSizePlaylist);
    to.setImageSizeGenre(from.imageSizeGenre);
    to.setImageSizeMood(from.imageSizeMood);
    to.setMaxIdleTimeMs(from.maxIdleTimeMs);
    return to;
}

} // namespace

SettingsWorker::SettingsWorker(const Settings& settings, QObject* parent)
    : CMNodesWorker(QVariantHash(), QStringLiteral("settings"), parent),
      m_list(CMListRowsNode::create(nodes(), addPrefix(QString())))
{
    m_list->setTitle(KELO_TR("Settings"));
    m_list->setContainerType(KeloRolesContainerType::List_);
    addTidal(settings.tidal);
    addSoundQuality(settings.tidal.soundQuality);
    addUsePostPaywall(settings.tidal.usePostPaywall);
    addOAuth2(settings.tidal.oauth2);
}

void SettingsWorker::addTidal(const TidalSettings& tidal)
{
    KeloValue value;
    value.setTidalSettings(tidalValue(tidal));
    addValue(KeloTidalSettingsPath(), KELO_TR("TIDAL"), value);
}

void SettingsWorker::addOAuth2(const OAuth2Settings& oauth2)
{
    addValue(KeloTidalDeviceCodeUrlPath(), KELO_TR("Device code address"),
             stringValue(oauth2.deviceCodeUrl));
    addValue(KeloTidalAuthorizationServiceUrlPath(), KELO_TR("Authorization address"),
             stringValue(oauth2.authorizationUrl));
    addValue(KeloTidalTokenServiceUrlPath(), KELO_TR("Token address"),
             stringValue(oauth2.tokenUrl));
    addValue(KeloTidalClientIdPath(), KELO_TR("Client id"), stringValue(oauth2.clientId));
    addValue(KeloTidalScope(), KELO_TR("Scope"), stringValue(oauth2.scope));
    CMValueNode* secret =
        addValue(KeloTidalClientSecretPath(), KELO_TR("Client secret"), KeloValue());
    secret->setSecret(true);
    secret->setValue(stringValue(oauth2.clientSecret.reveal()));
}

void SettingsWorker::addSoundQuality(const QString& name)
{
    const QStringList words = KeloTidalSoundQualities::words();
    auto* node = new QualityNode(KeloTidalSoundQualityPath());
    addNode(node, KELO_TR("Sound quality"), qualityValue(words.indexOf(name)));

    CMPath choices = KeloTidalSoundQualityPath();
    choices.appendSubpath(QStringLiteral("Enums"));
    auto* list = CMListRowsNode::create(nodes(), choices);
    list->setTitle(KELO_TR("Sound quality"));
    list->setContainerType(KeloRolesContainerType::List_);
    for (int i = 0; i < words.size(); ++i) {
        KeloRoles row;
        row.setType(KeloRolesType::Choice_);
        row.setTitle(words.at(i));
        row.setValue(qualityValue(i));
        list->rowsAppend(row);
    }
    KeloEdit edit;
    edit.setType(KeloEdit::Enum_);
    edit.setEnumPath(choices);
    node->setEdit(edit);
}

void SettingsWorker::addUsePostPaywall(bool use)
{
    KeloValue value;
    value.setBool(use);
    addNode(new CMValueNode(KeloTidalUsePostPaywallPath()), KELO_TR("Whole tracks"), value);
}

CMValueNode* SettingsWorker::addValue(const CMPath& path, const TrString& title,
                                      const KeloValue& value)
{
    auto* node = new CMValueNode(path);
    node->setReadOnly(true);
    addNode(node, title, value);
    return node;
}

void SettingsWorker::addNode(CMValueNode* node, const TrString& title, const KeloValue& value)
{
    node->setTitle(title);
    node->setNodes(nodes());
    if (!value.isEmpty())
        node->setValue(value);
    m_list->rowsAppend(node->path());
}
