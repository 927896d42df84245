#include "AudioOutput.h"
#include "GstOutput.h"
#include "NullOutput.h"
#include "ThreadedOutput.h"

std::unique_ptr<AudioOutput> AudioOutput::create(const QString& description, Clock& clock,
                                                 QString* error)
{
    if (description == QLatin1String("null"))
        return std::make_unique<NullOutput>(clock);
    return ThreadedOutput::create(
        [description](QString* problem) { return GstOutput::create(description, problem); }, error);
}
