// The part of AudioCheck that is loaded with the sound.
#include "client/AudioCheck.h"

#include <gst/gst.h>

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

extern "C" Q_DECL_EXPORT void kelo_audio_check(cli::AudioCheck& result)
{
    if (!gst_init_check(nullptr, nullptr, nullptr))
        return;
    gchar* version = gst_version_string();
    result.version = QString::fromUtf8(version);
    g_free(version);
    for (const char* name : {"playbin", "souphttpsrc", "flacparse", "flacdec", "audioconvert",
                             "audioresample", "autoaudiosink"}) {
        if (!hasElement(name))
            result.missing.append(name);
    }
    result.hasAac = hasElement("avdec_aac") || hasElement("faad") || hasElement("fdkaacdec");
}
