#pragma once
#include <QByteArray>

/// Length in milliseconds of a FLAC stream, read from its first bytes (RFC 9639 section 8.2); 0
/// when they are no FLAC stream or do not say it.
qint64 flacDurationMs(const QByteArray& head);
