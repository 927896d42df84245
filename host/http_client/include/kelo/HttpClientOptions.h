#pragma once
#include "HttpClientHeaders.h"
#include "HttpClientPrivate.h"

/// Options of one HTTP call. The setters return the object, so that they can be chained.
class KELO_EXPORT HttpClientOptions
{
public:
    HttpClientOptions& setUserData(const HttpClientPrivate& userData)
    {
        m_userData = userData;
        return *this;
    }
    /// Longest time for the whole call, in milliseconds; 0: no limit.
    HttpClientOptions& setTimeoutMs(int ms)
    {
        m_timeoutMs = ms;
        return *this;
    }
    /// Largest body of an answer, in bytes after decoding; 0: no limit. A larger one is a failure.
    HttpClientOptions& setReadSizeLimit(int bytes)
    {
        m_readSizeLimit = bytes;
        return *this;
    }
    HttpClientOptions& setHeaders(const HttpClientHeaders& headers)
    {
        m_headers = headers;
        return *this;
    }
    /// Whether a GET goes on to the address that an answer redirects to, when that has the same
    /// origin; else the redirect is the answer.
    HttpClientOptions& setFollowsRedirects(bool follows)
    {
        m_followsRedirects = follows;
        return *this;
    }

    /// Whether a GET may be answered by an equal one that is under way and began a moment ago, with
    /// nothing sent since that changes something.
    HttpClientOptions& setShared(bool isShared)
    {
        m_isShared = isShared;
        return *this;
    }

    const HttpClientPrivate& userData() const { return m_userData; }
    int timeoutMs() const { return m_timeoutMs; }
    int readSizeLimit() const { return m_readSizeLimit; }
    const HttpClientHeaders& headers() const { return m_headers; }
    bool followsRedirects() const { return m_followsRedirects; }
    bool isShared() const { return m_isShared; }

private:
    HttpClientPrivate m_userData;
    int m_timeoutMs = 30000;
    int m_readSizeLimit = 0;
    bool m_followsRedirects = true;
    bool m_isShared = false;
    HttpClientHeaders m_headers;
};
