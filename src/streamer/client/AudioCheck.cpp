#include "client/AudioCheck.h"

#include "library/RuntimeLibrary.h"

namespace cli {

AudioCheck AudioCheck::look()
{
    AudioCheck result;
    const RuntimeLibrary library(RuntimeLibrary::installedFile(QStringLiteral("libkelo_audio.so")));
    if (const auto check = library.function<void (*)(AudioCheck&)>("kelo_audio_check"))
        check(result);
    return result;
}

} // namespace cli
