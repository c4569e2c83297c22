// A small program for InstancesTest: starts as Zelvane does and says on its standard output, a line each, what happens
// to it. It ends with its standard input, or when it is asked to close.
//
//     instance_essai FOLDER TEXT      TEXT is the command line, its UTF-16 in hexadecimal
//
// ESSAI_ACTION: ActionCmd. ESSAI_PAUSE: milliseconds that handling a text takes.
#include "platform/RendezvousLocal.h"
#include "shell/InstanceClass.h"
#include "shell/Main.h"
#include "support/PlateformeDeTest.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <unistd.h>

namespace {

void Dire(const QByteArray& ligne)
{
    std::printf("%s\n", ligne.constData());
    std::fflush(stdout);
}

QByteArray EnHexadecimal(const QString& texte)
{
    return QByteArray(reinterpret_cast<const char*>(texte.utf16()), 2 * texte.size()).toHex();
}

QString DeHexadecimal(const QByteArray& octets)
{
    const QByteArray lus = QByteArray::fromHex(octets);
    return QString(reinterpret_cast<const QChar*>(lus.constData()), lus.size() / 2);
}

void Patienter()
{
    QEventLoop boucle;
    QTimer::singleShot(qEnvironmentVariableIntValue("ESSAI_PAUSE"), &boucle, &QEventLoop::quit);
    boucle.exec();
}

class Etapes : public EtapesDemarrage
{
public:
    void ChargerCadre() override
    {
        m_instance = std::make_unique<InstanceClass>();
        m_instance->ActionCmd = static_cast<ActionInstance>(qEnvironmentVariableIntValue("ESSAI_ACTION"));
        m_instance->ReceiveOutputs = [](const QString& texte) {
            Dire("recu " + EnHexadecimal(texte));
            Patienter();
            Dire("traite");
        };
        m_instance->InitClass({[](const QString& jeton) { Dire("montre " + jeton.toUtf8()); },
                               [] {
                                   Dire("ferme");
                                   QCoreApplication::quit();
                               },
                               [] {
                                   Dire("fini");
                                   std::exit(EXIT_SUCCESS);
                               }});
    }
    void MontrerCadre() override { Dire("premier"); }
    void DechargerCadre() override { m_instance.reset(); }
    bool PrevInstace() override { return m_instance->PrevInstace(); }
    void SendTexte(const QString& texte) override { Dire(m_instance->SendTexte(texte) ? "remis" : "pas remis"); }
    void SowPrev() override { m_instance->SowPrev(); }
    void Class_Terminate98() override { m_instance->Class_Terminate98(); }
    void MontrerPresentation() override {}
    void OuvrirFichier(const QString& chemin) override { Dire("ouvert " + EnHexadecimal(chemin)); }
    void MajMenuRecents() override {}
    void ProposerSecours() override {}
    void MontrerAstuces() override {}

private:
    std::unique_ptr<InstanceClass> m_instance;
};

} // namespace

int main(int argc, char** argv)
{
    const QString jeton = RendezvousLocal::JetonDuLancement();
    QCoreApplication application(argc, argv);
    if (argc != 3)
        return EXIT_FAILURE;

    const PlateformeDeTest doublures;
    ReglagesFichier reglages(QString::fromLocal8Bit(argv[1]) + "/reglages.ini");
    RendezvousLocal rendezvous(RendezvousLocal::Lieu::DuSysteme(), jeton);
    plateforme().reglages = &reglages;
    plateforme().rendezvous = &rendezvous;

    QSocketNotifier entree(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&entree, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    Etapes etapes;
    if (Main(DeHexadecimal(argv[2]), etapes) == SuiteDemarrage::Finir)
        return EXIT_SUCCESS;
    return QCoreApplication::exec();
}
