#include "SettingsWorker.h"

#include <gtest/gtest.h>
#include <kelo/CMWorkerThread.h>
#include <kelo/KeloTidalConstants.h>
#include <kelo/KeloTidalTypes.h>

namespace {

class SettingsWorkerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_settings.tidal.apiUrl = "http://here/v1";
        m_settings.tidal.oauth2.clientId = "me";
        m_settings.tidal.oauth2.clientSecret = Secret("hidden");
        ASSERT_TRUE(m_thread.start("settings", [this] { return new SettingsWorker(m_settings); }));
    }
    static CMError set(const CMPath& path, const QVariant& value)
    {
        CMReply<QVariant> reply = CMRoot().invoke(path, KeloValue::fromVariant(value).toVariant());
        reply.waitForFinished(-1);
        return reply.error();
    }
    static int quality()
    {
        return CMRoot().value(KeloTidalSoundQualityPath()).tidalSoundQuality().soundQuality();
    }

    Settings m_settings;
    CMWorkerThread m_thread;
};

} // namespace

TEST_F(SettingsWorkerTest, PublishesWhatModulesRead)
{
    const auto text = [](const CMPath& path) { return CMRoot().value(path).string_(); };
    EXPECT_EQ(CMRoot().value(KeloTidalSettingsPath()).tidalSettings().apiUrl(), "http://here/v1");
    EXPECT_EQ(CMRoot().value(KeloTidalSettingsPath()).tidalSettings().maxIdleTimeMs(), 30000);
    EXPECT_EQ(text(KeloTidalDeviceCodeUrlPath()), m_settings.tidal.oauth2.deviceCodeUrl);
    EXPECT_EQ(text(KeloTidalTokenServiceUrlPath()), m_settings.tidal.oauth2.tokenUrl);
    EXPECT_EQ(text(KeloTidalClientIdPath()) + text(KeloTidalClientSecretPath()), "mehidden");
    EXPECT_FALSE(CMRoot().dataRoles(KeloTidalClientSecretPath()).contains(KeloRoles::Value()));
    EXPECT_EQ(quality(), KeloTidalSoundQualities::LOSSLESS_);
    EXPECT_TRUE(CMRoot().value(KeloTidalUsePostPaywallPath()).bool_());
}

TEST_F(SettingsWorkerTest, TakesGoodValuesAndRefusesOthers)
{
    EXPECT_FALSE(set(KeloTidalSoundQualityPath(), "low").isSet());
    EXPECT_EQ(quality(), KeloTidalSoundQualities::LOW_);
    EXPECT_FALSE(set(KeloTidalSoundQualityPath(), 3).isSet());
    KeloTidalSoundQuality typed;
    typed.setSoundQuality(KeloTidalSoundQualities::HIGH_);
    KeloValue value;
    value.setTidalSoundQuality(typed);
    EXPECT_FALSE(set(KeloTidalSoundQualityPath(), value.toVariant()).isSet());
    for (const QVariant& wrong :
         {QVariant(), QVariant(4), QVariant(-1), QVariant("LOUD"), QVariant(true),
          QVariant(QVariantHash{{"type", "tidalSoundQuality"}}),
          QVariant(QVariantList{1, QVariantList{}})})
        EXPECT_TRUE(set(KeloTidalSoundQualityPath(), wrong).isSet()) << wrong.typeName();
    EXPECT_EQ(quality(), KeloTidalSoundQualities::HIGH_);

    EXPECT_FALSE(set(KeloTidalUsePostPaywallPath(), false).isSet());
    EXPECT_FALSE(CMRoot().value(KeloTidalUsePostPaywallPath()).bool_());
    EXPECT_TRUE(set(KeloTidalUsePostPaywallPath(), "no").isSet());
    EXPECT_TRUE(set(KeloTidalClientIdPath(), "you").isSet());
}
