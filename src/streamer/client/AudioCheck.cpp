#include "client/AudioCheck.h"

#include <gst/gst.h>

namespace cli {

namespace {

bool hasElement(const char* name)
{
    GstElementFactory* factory = gst_element_factory_find(name);
    if (!factory)
        return false;
    gst_object_unref(factory);
    return true;
}

} // namespace

AudioCheck AudioCheck::look()
{
    AudioCheck result;
    if (!gst_init_check(nullptr, nullptr, nullptr))
        return result;
    gchar* version = gst_version_string();
    result.version = QString::fromUtf8(version);
    g_free(version);
    for (const char* name : {"playbin", "souphttpsrc", "flacparse", "flacdec", "audioconvert",
                             "audioresample", "autoaudiosink"}) {
        if (!hasElement(name))
            result.missing.append(name);
    }
    result.hasAac = hasElement("avdec_aac") || hasElement("faad") || hasElement("fdkaacdec");
    return result;
}

} // namespace cli
