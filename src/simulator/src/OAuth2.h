#pragma once

#include "Faults.h"

#include <map>
#include <mutex>

namespace kelosim {

// The authorisation server: device codes, refreshes, and the tokens that the web API accepts. Owned
// by SimServer, used from every connection thread. Knows one client and one user.
class OAuth2
{
public:
    static constexpr const char* clientId = "kelo-demo";
    static constexpr const char* clientSecret = "kelo-demo-secret";

    // So many device codes, the first ones, approve themselves.
    OAuth2(Faults& faults, int approvals) : m_faults(faults), m_approvals(approvals) {}

    // Below /v1/oauth2; `address` is what the client reached us under.
    HttpResponse deviceAuthorization(const HttpRequest& request, const std::string& address);
    HttpResponse token(const HttpRequest& request);

    // The person's answer; false for a code that nobody waits for, or that has the other answer.
    bool decide(const std::string& userCode, bool approve);
    // Whether a login waits for the person's answer to this code.
    bool isWaiting(const std::string& userCode) const;

    // What is wrong with the request's access token: subStatus and message; nothing when it is
    // good.
    using Refusal = std::pair<int, const char*>;
    std::optional<Refusal> check(const HttpRequest& request) const;

    std::string issueToken();
    void expireTokens();

private:
    enum class State { Pending, Approved, Denied };
    struct Device
    {
        std::string userCode;
        State state = State::Pending;
        std::int64_t expires = 0;
        std::int64_t interval = 2000;
        std::int64_t lastPoll = 0;
    };

    // m_mutex is held in these.
    HttpResponse deviceToken(const Pairs& form);
    HttpResponse refreshToken(const Pairs& form);
    HttpResponse grant(const std::string& refreshToken);
    std::string newAccessToken(std::int64_t seconds);
    std::string secret(const char* prefix);

    Faults& m_faults;
    int m_approvals; // that are still to be given unasked
    mutable std::mutex m_mutex;
    std::map<std::string, Device> m_devices;            // by device code
    std::map<std::string, std::int64_t> m_accessTokens; // with the end of their life, epoch ms
    std::map<std::string, bool> m_refreshTokens;        // false: ended by rotation
    std::uint64_t m_secrets = 0;
};

} // namespace kelosim
