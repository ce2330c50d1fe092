/// The edge between the core's paths and the toolkit's.
#pragma once

#include "store/platform.h"

#include <QFile>
#include <QString>

/// A path as the toolkit spells it. Bytes that are no text in the system's encoding are lost.
inline QString qtPath(const Path& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

/// A path that the toolkit gave; empty for an empty one.
inline Path corePath(const QString& path)
{
    return Path(QFile::encodeName(path).toStdString());
}
