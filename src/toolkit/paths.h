/// The edge between the core's paths and the toolkit's.
#pragma once

#include "store/platform.h"

#include <QFile>
#include <QString>

inline QString qtPath(const Path& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

inline Path corePath(const QString& path)
{
    return Path(QFile::encodeName(path).toStdString());
}
