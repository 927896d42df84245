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

TEST_F(SettingsWorkerTest, TellsModulesTheSecretAndNobodyElse)
{
    EXPECT_EQ(CMRoot().value(KeloTidalClientSecretPath()).string_(), "hidden");
    EXPECT_FALSE(CMRoot().dataRoles(KeloTidalClientSecretPath()).contains(KeloRoles::Value()));
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
