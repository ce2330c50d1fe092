/// The grid of a map as programs for the blind meet it: a table of cells, each told in words.
#pragma once

class QAccessibleInterface;
class QObject;
class QString;

/// The interface of a GridPicture, or of the GridOverlay over it; null for any other object. A factory in the
/// toolkit's sense.
QAccessibleInterface* gridInterface(const QString& className, QObject* object);
