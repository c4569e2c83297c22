// The frame and its panel of welcome.
#include "catalogue/documents/FichierRecent.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "platform/Retenue.h"
#include "shell/Form1.h"
#include "shell/MDIForm1.h"
#include "shell/PanneauDAccueil.h"
#include "shell/Toolbars.h"
#include "ui_MDIForm1.h"

using namespace Qt::StringLiterals;

void MDIForm1::RelierAccueil()
{
    m_accueil = new PanneauDAccueil(*m_ui->Fenetres);
    m_accueil->MettreExemples(ExemplesInstalles());
    const auto commande = [this](const QString& cle) {
        return [this, cle] { Retenue::Apres(this, [this, cle] { Commande(*this, cle); }); };
    };
    // Later: what opens a window rewrites or hides what was just pressed.
    connect(m_accueil, &PanneauDAccueil::NouvelleDemandee, this, commande(u"addcat"_s), Qt::QueuedConnection);
    connect(m_accueil, &PanneauDAccueil::OuvrirDemande, this, commande(u"ouvrir"_s), Qt::QueuedConnection);
    connect(
        m_accueil, &PanneauDAccueil::RecentChoisi, this,
        [this](const QString& chemin) { Retenue::Apres(this, [this, chemin] { OuvrirEtNoter({chemin}); }); },
        Qt::QueuedConnection);
    // As a category that was never saved: the installed file is nobody's to write.
    connect(
        m_accueil, &PanneauDAccueil::ExempleChoisi, this,
        [this](const QString& chemin) { Retenue::Apres(this, [this, chemin] { OuvrirCommeNeuf(*this, chemin); }); },
        Qt::QueuedConnection);
}

void MDIForm1::MontrerRecentsALAccueil()
{
    QStringList chemins;
    for (const QAction* recent :
         {m_ui->mRecent_0, m_ui->mRecent_1, m_ui->mRecent_2, m_ui->mRecent_3, m_ui->mRecent_4}) {
        if (recent->isVisible())
            chemins.append(recent->data().toString());
    }
    m_accueil->MettreRecents(chemins);
}
