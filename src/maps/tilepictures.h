/// The tile pictures beside the tool, loaded once: they do not change while the program runs.
#pragma once

#include "store/platform.h"

#include <QImage>

/// The picture of a file; null when it is missing, no picture, or larger than a map's whole picture could
/// ever show. The reference stays valid.
const QImage& tilePicture(const Path& path);
