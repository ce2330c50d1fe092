// The way into the program: the toolkit makes a generic plugin that the environment names.
#include "hand.h"

#include <QGenericPlugin>

class HandPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "hand.json")

public:
    QObject* create(const QString&, const QString& folder) override { return new Hand(folder); }
};

#include "plugin.moc"
