// The way into the program: the toolkit makes a generic plugin that the environment names.
#include "monkey.h"

#include <QCoreApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QStringList>

class MonkeyPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "monkey.json")

public:
    /// orders: SEED;FIRST;LAST;ROUNDS;LOG;WHOLE
    QObject* create(const QString&, const QString& orders) override
    {
        const QStringList pieces = orders.split(u';');
        const QByteArray appDir = QFile::encodeName(QCoreApplication::applicationDirPath());
        return new Monkey({pieces.at(0).toULongLong(), pieces.at(1).toInt(), pieces.at(2).toInt(),
                           pieces.at(3).toInt(), appDir.toStdString(), pieces.at(4).toStdString(),
                           pieces.at(5).toStdString()});
    }
};

#include "plugin.moc"
