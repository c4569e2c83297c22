// A plug-in that takes its name from its file, so that copies of one library make a full folder. Those whose names
// begin with "autre" are commands, the others open and export.
#include <ZelvanePlugin.h>

#include <QFileInfo>

#include <dlfcn.h>

class Mesure : public QObject
{
    Q_OBJECT

public:
    explicit Mesure(const QString& nom) : m_nom(nom) {}
    Q_INVOKABLE void WhatIsIt(QString& genres)
    {
        genres = m_nom.startsWith(QStringLiteral("autre")) ? QStringLiteral("other") : QStringLiteral("open,export");
    }

private:
    QString m_nom;
};

ZELVANE_BIBLIOTHEQUE

namespace {

QString NomDeLaBibliotheque()
{
    Dl_info informations;
    if (dladdr(&ZelvaneRegistreDuProgramme, &informations) == 0)
        return {};
    return QFileInfo(QString::fromUtf8(informations.dli_fname)).completeBaseName();
}

} // namespace

extern "C" Q_DECL_EXPORT int DllRegisterServer()
{
    const QByteArray nom = "PlugQRT." + NomDeLaBibliotheque().toUtf8();
    ZelvaneRegistreDuProgramme->inscrire(ZelvaneRegistreDuProgramme->contexte, nom.constData(),
                                         []() -> QObject* { return new Mesure(NomDeLaBibliotheque()); });
    return 0;
}

#include "plugin_mesure.moc"
