#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kelosim {

struct SimOptions
{
    std::string listen = "127.0.0.1:0"; // address:port, port 0 picks a free one
    std::uint64_t seed = 1;             // the catalogue is a function of this number alone
    int latencyMs = 0;                  // added to every answer of the web API
    std::vector<std::string> faults;    // fault lines that are in force from the start
    int approvals = 0;                  // so many device codes, the first ones, approve themselves
};

// The simulated service: web API, OAuth2, images and audio behind one loopback address.
// Owned by whoever starts it; runs on threads of its own, every member may be called from any
// thread. It keeps its state in memory only and never calls back into its owner.
//
//   baseUrl() + "/v1"           web API, with "/v1/oauth2/{device_authorization,token}"
//   baseUrl() + "/images/"      pictures
//   baseUrl() + "/audio/"       streams, addresses come from playback info
//   baseUrl() + "/sim/..."      control: log, faults, reset, login
class SimServer
{
public:
    explicit SimServer(SimOptions options);
    ~SimServer(); // stops
    SimServer(const SimServer&) = delete;
    SimServer& operator=(const SimServer&) = delete;

    // Binds and returns; false with a sentence in *error when the address or a fault line is bad.
    bool start(std::string* error);
    // Ends every connection, hanging ones too, and joins all threads. May be called twice.
    void stop();

    int port() const;
    std::string baseUrl() const; // "http://127.0.0.1:PORT"

    // Puts one fault line in force. Returns "" or a sentence about what is wrong with it.
    std::string addFault(const std::string& line);
    void clearFaults();
    // Library, faults and log as at the start. Tokens stay valid so that clients live on.
    void reset();

    // The request log as a JSON array, oldest first.
    std::string log() const;
    // Waits until `count` requests whose path starts with `pathPrefix` have arrived since the last
    // reset; the prefix counts from "/v1" or from behind it. False when `timeoutMs` pass first.
    bool waitForRequests(const std::string& pathPrefix, int count, int timeoutMs) const;

    // A valid access token of the one user, for tests that skip the login.
    std::string issueToken();
    // Every access token issued so far answers 401/11003 from now on.
    void expireTokens();

    // A body of the shape of /albums/{id}/tracks with `count` full tracks.
    std::string tracksBody(int count) const;

    // One line per fault: name, its keys and what it does.
    static std::string faultHelp();

private:
    class Private;
    std::unique_ptr<Private> m_d;
};

} // namespace kelosim
