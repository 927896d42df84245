#pragma once

#include "kelosim/SimServer.h"

#include <gtest/gtest.h>
#include <httplib.h>
#include <rapidjson/document.h>

// A simulated service on a free port, and a client of it that carries a valid token.
class SimFixture : public testing::Test
{
protected:
    using Json = rapidjson::Document;
    using Value = rapidjson::Value;

    void SetUp() override
    {
        std::string error;
        ASSERT_TRUE(m_sim.start(&error)) << error;
        m_client = std::make_unique<httplib::Client>("127.0.0.1", m_sim.port());
        m_client->set_keep_alive(true);
        m_client->set_tcp_nodelay(true);
        m_client->set_read_timeout(20);
        m_client->set_bearer_token_auth(m_sim.issueToken().c_str());
    }

    // The answer to a path below /v1; "?" or "&" and the country are added when `country` is set.
    httplib::Result get(const std::string& path, bool country = true)
    {
        return m_client->Get(("/v1" + path + (country ? withCountry(path) : "")).c_str());
    }
    static std::string withCountry(const std::string& path)
    {
        return (path.find('?') == std::string::npos ? "?" : "&") + std::string("countryCode=NO");
    }

    static Json parse(const std::string& text)
    {
        Json json;
        json.Parse(text.c_str());
        EXPECT_FALSE(json.HasParseError()) << text.substr(0, 300);
        return json;
    }

    // The parsed answer, which must be a good one.
    Json json(const std::string& path)
    {
        const auto result = get(path);
        EXPECT_EQ(outcome(result), "200") << path;
        return result ? parse(result->body) : Json(rapidjson::kObjectType);
    }

    httplib::Result postForm(const std::string& path, const std::string& form,
                             const httplib::Headers& headers = {})
    {
        return m_client->Post(("/v1" + path + withCountry(path)).c_str(), headers, form,
                              "application/x-www-form-urlencoded");
    }

    std::string addFault(const std::string& line) { return m_sim.addFault(line); }

    // "404/2001" of an error answer, "200" of any other.
    static std::string outcome(const httplib::Result& result)
    {
        if (!result)
            return httplib::to_string(result.error());
        Json body;
        body.Parse(result->body.c_str());
        std::string text = std::to_string(result->status);
        if (!body.HasParseError() && body.IsObject() && body.HasMember("subStatus"))
            text += "/" + std::to_string(body["subStatus"].GetInt());
        return text;
    }

    kelosim::SimServer m_sim{kelosim::SimOptions()};
    std::unique_ptr<httplib::Client> m_client;
};
