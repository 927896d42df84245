#pragma once
#include "Streamer.h"

#include <gtest/gtest.h>
#include <kelosim/SimServer.h>
#include <memory>

/// A streamer that is logged in to a simulated service of its own.
class ServiceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        kelosim::SimOptions options;
        options.approvals = 1000;
        options.faults = {"device-code interval=1 expires=60"};
        sim = std::make_unique<kelosim::SimServer>(options);
        std::string error;
        ASSERT_TRUE(sim->start(&error)) << error;
        ASSERT_TRUE(streamer.start(Streamer::settingsFor(*sim))) << streamer.errors().toStdString();
        ASSERT_TRUE(streamer.login()) << streamer.errors().toStdString();
    }

    std::unique_ptr<kelosim::SimServer> sim;
    Streamer streamer;
};
