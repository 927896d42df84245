#include "AudioOutput.h"
#include "library/RuntimeLibrary.h"
#include "ThreadedOutput.h"
#include <system_error>

namespace {
std::unique_ptr<AudioOutput> load(const QString& description, QString* error)
{
    const RuntimeLibrary library(RuntimeLibrary::installedFile(QStringLiteral("libkelo_audio.so")));
    const auto create = library.function<AudioOutputCreate>("kelo_audio_output");
    if (create)
        return std::unique_ptr<AudioOutput>(create(description, error));
    *error = QStringLiteral("cannot load what plays: %1").arg(library.reason());
    return nullptr;
}
} // namespace

std::unique_ptr<AudioOutput> AudioOutput::create(const QString& description, QString* error)
{
    // Only a description may be wrong. Else GStreamer is loaded when something plays.
    const bool isKnown =
        description == QLatin1String("null") || description == QLatin1String("auto");
    try {
        auto output = std::make_unique<ThreadedOutput>(
            [description](QString* problem) { return load(description, problem); });
        if (isKnown || output->make(error))
            return output;
    } catch (const std::system_error& failure) {
        *error = QStringLiteral("no thread for the audio output: %1").arg(failure.what());
    }
    return nullptr;
}
