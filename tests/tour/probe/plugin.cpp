// The way into the program: the toolkit makes a generic plugin that the environment names.
#include "probe.h"

#include <QGenericPlugin>

class ProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

public:
    QObject* create(const QString&, const QString& socketFile) override { return new Probe(socketFile); }
};

#include "plugin.moc"
