/// The tile pictures beside the tool, loaded once: they do not change while the program runs.
#pragma once

#include "store/platform.h"

#include <QImage>

/// The picture of a file; null when it is missing, no picture, or wider or higher
/// than 1024 pixels. The reference stays valid.
const QImage& tilePicture(const Path& path);
