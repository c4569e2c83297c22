#include "shell/InstanceClass.h"

#include "platform/Plateforme.h"
#include "platform/Rendezvous.h"

#include <utility>

namespace {

const QString Section = QStringLiteral("HwndInstance");
const QString Cle = QStringLiteral("Hwnd");

void PublierPoignee()
{
    Reglages& reglages = *plateforme().reglages;
    reglages.Ecrire(Section, Cle, QString::number(InstanceModule::Poignee()));
    // The next start may come this very moment, long before the event loop is idle.
    reglages.Deposer();
}

/// What the first instance has published. A setting that was never kept (settings that cannot be written) must not
/// lose the user's file: the instance that was found is meant then. One that is out of date names nobody.
qint32 PoigneePubliee(qint32 trouvee)
{
    const std::optional<QString> valeur = plateforme().reglages->LireDepose(Section, Cle);
    return valeur ? valeur->toInt() : trouvee;
}

} // namespace

InstanceClass::InstanceClass(QString titre) : m_titre(std::move(titre)) {}

InstanceClass::~InstanceClass()
{
    Class_Terminate98();
}

void InstanceClass::InitClass(const ProprietaireInstance& proprietaire)
{
    m_proprietaire = proprietaire;
    InstanceModule::Accrocher(*this, proprietaire);
}

void InstanceClass::Class_Terminate98()
{
    if (InstanceModule::APrevenir() == this)
        InstanceModule::Decrocher();
}

bool InstanceClass::PrevInstace()
{
    Rendezvous* rendezvous = plateforme().rendezvous;
    m_prevHwnd = rendezvous ? rendezvous->Chercher(m_titre, PublierPoignee) : 0;
    if (m_prevHwnd < 1)
        return false;
    m_prevTextHwnd = PoigneePubliee(m_prevHwnd);
    Agir();
    return true;
}

void InstanceClass::Agir()
{
    switch (ActionCmd) {
    case ActionInstance::Rien:
        return;
    case ActionInstance::PasserLaMain:
        SendTexte(QString());
        SowPrev();
        Class_Terminate98();
        if (m_proprietaire.finir)
            m_proprietaire.finir();
        return;
    case ActionInstance::Remplacer:
        KillPrev();
        plateforme().rendezvous->PrendreLaPlace(m_titre, PublierPoignee);
        return;
    }
}

bool InstanceClass::SendTexte(const QString& texte)
{
    if (!texte.isEmpty())
        CommandLine = texte;
    Rendezvous* rendezvous = plateforme().rendezvous;
    return rendezvous && !CommandLine.isEmpty() && rendezvous->Envoyer(m_prevTextHwnd, CommandLine);
}

bool InstanceClass::SowPrev(qint32 poignee)
{
    if (poignee != 0)
        m_prevHwnd = poignee;
    Rendezvous* rendezvous = plateforme().rendezvous;
    return rendezvous && m_prevHwnd >= 1 && rendezvous->Montrer(m_prevHwnd);
}

bool InstanceClass::KillPrev(qint32 poignee)
{
    if (poignee != 0)
        m_prevHwnd = poignee;
    Rendezvous* rendezvous = plateforme().rendezvous;
    return rendezvous && m_prevHwnd > 0 && rendezvous->Fermer(m_prevHwnd);
}
