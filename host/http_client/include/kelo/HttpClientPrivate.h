#pragma once
#include <kelo/CMRequest.h>
#include <kelo/KeloExport.h>
#include <QMetaType>

/// User data of a HTTP call: the request or requests of the content tree on whose behalf it is
/// made. The client hands it back with the answer, untouched.
class KELO_EXPORT HttpClientPrivate
{
public:
    /// What the user data is built from.
    class KELO_EXPORT Data
    {
    public:
        Data(CMRequest const& primary) : m_primary(primary) {}
        Data(CMRequest const& primary, CMRequest const& secondary)
            : m_primary(primary), m_secondary(secondary)
        {
        }

    private:
        friend class HttpClientPrivate;
        CMRequest m_primary;
        CMRequest m_secondary;
    };

    HttpClientPrivate() = default;
    HttpClientPrivate(const Data& data) : m_primary(data.m_primary), m_secondary(data.m_secondary)
    {
    }

    /// The primary request as this kind; null when it is of another kind.
    CMGetRowsRequest getCMGetRowsRequest() const { return CMGetRowsRequest(m_primary); }
    CMGetDataRequest getCMGetDataRequest() const { return CMGetDataRequest(m_primary); }
    CMSetDataRequest getCMSetDataRequest() const { return CMSetDataRequest(m_primary); }
    const CMRequest& getCMRequest() const { return m_primary; }
    /// The secondary request; null when there is none.
    const CMRequest& getCMRequestSec() const { return m_secondary; }

    /// A number of the sender's own, by which it knows its call again; 0 when it sets none.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

private:
    CMRequest m_primary;
    CMRequest m_secondary;
    int m_tag = 0;
};

Q_DECLARE_METATYPE(HttpClientPrivate)
