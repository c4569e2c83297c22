// The guinea pig of the tests of failures: the program's real frame, documents and platform, driven by a script. What
// ends it, and when, is the driver's affair.
//
//     cobaye agir              does the steps on standard input (see CobayeEtapes.h), says them, and stays
//     cobaye constater FILE... says what the next start offers and what the files hold (see CobayeConstat.h)
#include "base/Const_Vrac.h"
#include "pannes/CobayeConstat.h"
#include "pannes/CobayeEtapes.h"
#include "pannes/CobayeReponses.h"
#include "platform/Plateforme.h"
#include "platform/RendezvousLocal.h"
#include "shell/MDIForm1.h"
#include "shell/VeilleSecours.h"

#include <QApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// All of it before the first step: nothing arrives while one runs.
QList<QByteArray> LireScript()
{
    QFile entree;
    return entree.open(stdin, QIODevice::ReadOnly) ? entree.readAll().split('\n') : QList<QByteArray>();
}

int Agir(MDIForm1& cadre, CobayeReponses& reponses)
{
    const QList<QByteArray> script = LireScript();
    cadre.My_Instance.PrevInstace();
    cadre.show();
    VeilleSecours veille(cadre);
    CobayeEtapes etapes(cadre, reponses, script);
    DireLigne("pret");
    etapes.Commencer();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments().mid(1);
    const PlateformeReelle plateformeReelle;
    RendezvousLocal rendezvous(RendezvousLocal::Lieu::DuSysteme(), QString());
    plateforme().rendezvous = &rendezvous;
    CobayeReponses reponses;
    // Comments are files like the images here: nobody reads them.
    EcrireOption(u"commentAtStartup"_s, 0);
    MDIForm1 cadre;
    if (arguments.value(0) == u"agir")
        return Agir(cadre, reponses);
    if (arguments.value(0) != u"constater")
        return EXIT_FAILURE;
    Constater(cadre, arguments.mid(1));
    // At once, without a question about what was opened.
    std::_Exit(EXIT_SUCCESS);
}
