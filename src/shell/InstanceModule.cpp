#include "shell/InstanceModule.h"

#include "platform/Plateforme.h"
#include "platform/Rendezvous.h"
#include "shell/InstanceClass.h"

namespace {

InstanceClass* s_aPrevenir = nullptr;
qint32 s_poignee = 0;

void Recevoir(const QString& texte)
{
    if (!s_aPrevenir)
        return;
    // A copy: the event may end the program, and the object with it.
    const auto evenement = s_aPrevenir->ReceiveOutputs;
    if (evenement)
        evenement(texte);
}

} // namespace

namespace InstanceModule {

void Accrocher(InstanceClass& instance, const ProprietaireInstance& proprietaire)
{
    Rendezvous* rendezvous = plateforme().rendezvous;
    if (!rendezvous)
        return;
    s_aPrevenir = &instance;
    s_poignee = rendezvous->Poignee();
    rendezvous->Servir({Recevoir, proprietaire.montrer, proprietaire.fermer});
}

void Decrocher()
{
    s_aPrevenir = nullptr;
    s_poignee = 0;
    if (Rendezvous* rendezvous = plateforme().rendezvous)
        rendezvous->Quitter();
}

qint32 Poignee()
{
    return s_poignee;
}

InstanceClass* APrevenir()
{
    return s_aPrevenir;
}

} // namespace InstanceModule
