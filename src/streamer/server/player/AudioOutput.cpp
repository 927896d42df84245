#include "AudioOutput.h"
#include "GstOutput.h"
#include "ThreadedOutput.h"
#include <system_error>

std::unique_ptr<AudioOutput> AudioOutput::create(const QString& description, QString* error)
{
    const bool isNull = description == QLatin1String("null");
    const QString sink = isNull ? GstOutput::silentSink() : description;
    try {
        auto output = std::make_unique<ThreadedOutput>(
            [sink](QString* problem) { return GstOutput::create(sink, problem); });
        // Silence needs no look at the machine: GStreamer is loaded when something plays.
        if (isNull || output->make(error))
            return output;
    } catch (const std::system_error& failure) {
        *error = QStringLiteral("no thread for the audio output: %1").arg(failure.what());
    }
    return nullptr;
}
