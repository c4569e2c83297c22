// One instance of the program: a second start hands its file over to the first one and ends.
//
// The frame owns one InstanceClass as My_Instance, and its main owns the rendezvous:
//
//     const QString jeton = RendezvousLocal::JetonDuLancement(); // before the QApplication, which takes it away
//     QApplication application(argc, argv);
//     const PlateformeReelle plateformeReelle;
//     RendezvousLocal rendezvous(RendezvousLocal::Lieu::DuSysteme(), jeton);
//     plateforme().rendezvous = &rendezvous;
//
// The frame's load calls InitClass, with ActionCmd 0:
//
//     My_Instance.ReceiveOutputs = [this](const QString& texte) { OuvrirFichier(*this, texte, TypeQrt2, true); };
//     My_Instance.ActionCmd = ActionInstance::Rien;
//     My_Instance.InitClass({.montrer = [this](const QString& jeton) { MettreAuPremierPlan(*this, jeton); },
//                            .fermer = [this] { close(); },
//                            .finir = {}});
//
// and the steps of Main are members of My_Instance of the same names. Events come while the event loop runs, which may
// be that of a modal dialog.
#pragma once

#include "shell/InstanceModule.h"

#include <QString>

#include <functional>

/// What PrevInstace does by itself when it has found another instance.
enum class ActionInstance : qint32 {
    Rien = 0,
    PasserLaMain = 1, ///< sends CommandLine, brings the other one to the front and ends this process
    Remplacer = 2,    ///< asks the other one to close and takes its place
};

class InstanceClass
{
public:
    /// Instances find each other when their titles are exactly the same.
    explicit InstanceClass(QString titre = QStringLiteral("Zelvane"));
    ~InstanceClass();
    InstanceClass(const InstanceClass&) = delete;
    InstanceClass& operator=(const InstanceClass&) = delete;

    QString CommandLine; ///< the text to send
    ActionInstance ActionCmd = ActionInstance::Rien;
    /// A text has arrived from another instance, which waits until this returns.
    std::function<void(const QString& texte)> ReceiveOutputs;

    /// The other instance; below 1 when there is none.
    qint32 PrevHwnd() const { return m_prevHwnd; }
    /// Where the other instance takes texts, as the setting told PrevInstace.
    qint32 PrevTextHwnd() const { return m_prevTextHwnd; }

    /// Lets this process be heard from; PrevInstace then decides whether it is the one that others find.
    void InitClass(const ProprietaireInstance& proprietaire);
    /// Hears no more and is found no more. The end of the object does the same.
    void Class_Terminate98();

    /// Whether another instance runs. When none does this is the first: from now on others find it, and its handle
    /// stands in the setting.
    bool PrevInstace();
    /// Sends CommandLine, which becomes `texte` first unless that is empty. Nothing is sent when both are empty.
    /// Returns when the other instance has handled the text: true, or false when it has not.
    bool SendTexte(const QString& texte);
    /// Brings the other instance to the front. A handle other than 0 becomes PrevHwnd first, here and below.
    bool SowPrev(qint32 poignee = 0);
    /// Asks the other instance to close.
    bool KillPrev(qint32 poignee = 0);

private:
    void Agir();

    QString m_titre;
    ProprietaireInstance m_proprietaire;
    qint32 m_prevHwnd = 0;
    qint32 m_prevTextHwnd = 0;
};
