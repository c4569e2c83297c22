#include "pannes/CobayeEtapes.h"

#include "base/DossiersTemp.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "entries/OperationsEntrees.h"
#include "images/Bibliotheque.h"
#include "images/FichierImage.h"
#include "kit/frmAvancement.h"
#include "pannes/CobayeConstat.h"
#include "pannes/CobayeReponses.h"
#include "shell/MDIForm1.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <sys/stat.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

ListItem EntreeDe(Form1& fenetre, const QString& id)
{
    MyLV& table = *fenetre.myqrt.MyLV;
    for (int i = 1; i <= table.ListItems.Count(); ++i) {
        if (const ListItem entree = table.ListItems(i); entree.Text() == id)
            return entree;
    }
    return {};
}

bool Editer(Form1& fenetre, const QString& graine)
{
    MyLV& table = *fenetre.myqrt.MyLV;
    for (int i = 1; i <= table.ListItems.Count(); ++i) {
        ListItem entree = table.ListItems(i);
        std::vector<std::optional<QString>> valeurs{std::nullopt};
        for (int colonne = 2; colonne <= table.ColumnHeaders.Count(); ++colonne)
            valeurs.emplace_back(u"%1-%2-%3"_s.arg(graine, entree.Text(), QString::number(colonne)));
        entree.Modifier(valeurs, std::nullopt);
    }
    fenetre.myqrt.IlFautSauver = true;
    return true;
}

bool Appliquer(Form1& fenetre, const QString& texte)
{
    MyLV& table = *fenetre.myqrt.MyLV;
    table.Selectionner(1, table.ListItems.Count(), true);
    // Events run from the first entries on.
    AvancementEnFenetre avancement(std::chrono::milliseconds(0));
    ModifierSelection(fenetre, {{QString(), texte}, {}, {}}, avancement);
    return true;
}

bool Inscrire(Form1& fenetre, const QString& id)
{
    InscrireEntree(fenetre, {{id, u"inscrit"_s}, {}, {}});
    return true;
}

/// The image goes into the folder at once, as from the image library; the entry is written then.
bool MettreImage(Form1& fenetre, const QString& id, const QString& nom, const QString& source)
{
    ListItem entree = EntreeDe(fenetre, id);
    if (!entree || !CopierImage(source, fenetre.myqrt.TmpFolder + nom, SiLeFichierExiste::Remplacer))
        return false;
    entree.SetTag(nom);
    entree.SetSmallIcon(IconeImage(fenetre.myqrt.TmpFolder, nom));
    fenetre.myqrt.IlFautSauver = true;
    return true;
}

bool OterImage(Form1& fenetre, const QString& id)
{
    ListItem entree = EntreeDe(fenetre, id);
    int mode = SupprImgOuiTous;
    if (!entree || !SupprimerImage(FichierImage(fenetre.myqrt.TmpFolder, entree.Tag()), mode, {}))
        return false;
    entree.SetTag(QString());
    entree.SetSmallIcon(u"noico"_s);
    fenetre.myqrt.IlFautSauver = true;
    return true;
}

bool EstSauve(const Form1& fenetre)
{
    return !fenetre.myqrt.IlFautSauver && !fenetre.myqrt.GardeDossier() && !EnCoursDeSauvegarde;
}

/// Another one for each file that took the place of the one before.
ino_t NumeroDe(const QString& fichier)
{
    struct stat etat
    {
    };
    return stat(QFile::encodeName(fichier).constData(), &etat) == 0 ? etat.st_ino : 0;
}

void Commander(const Form1& fenetre, const QString& nom)
{
    fenetre.findChild<QAction*>(nom)->trigger();
}

} // namespace

QString CobayeEtapes::Etape::Argument(int index, int nombre) const
{
    return arguments.section(u' ', index, index + 1 == nombre ? -1 : index);
}

CobayeEtapes::CobayeEtapes(MDIForm1& cadre, CobayeReponses& reponses, const QList<QByteArray>& lignes)
    : m_cadre(cadre), m_reponses(reponses)
{
    for (const QByteArray& ligne : lignes) {
        const QString texte = QString::fromUtf8(ligne);
        if (!texte.isEmpty())
            m_etapes.append({texte.section(u' ', 0, 0), texte.section(u' ', 1)});
    }
}

void CobayeEtapes::Commencer()
{
    QTimer::singleShot(0, this, &CobayeEtapes::Suivante);
}

void CobayeEtapes::Suivante()
{
    if (m_faites == m_etapes.size())
        return DireLigne("attend");
    DireLigne("debut " + QByteArray::number(m_faites + 1));
    Faire();
}

void CobayeEtapes::Finir(bool bien)
{
    DireLigne("fin " + QByteArray::number(m_faites + 1) + (bien ? " ok" : " non"));
    ++m_faites;
    QTimer::singleShot(0, this, &CobayeEtapes::Suivante);
}

void CobayeEtapes::Faire()
{
    const Etape& etape = m_etapes[m_faites];
    if (etape.nom == u"attendre")
        return QTimer::singleShot(etape.arguments.toInt(), this, [this] { Finir(true); });
    if (etape.nom == u"secours") {
        // Ahead of the clock of any copy that was written before, by the time after which the next one is due.
        const qint64 saut = SecoursDuDocument::Pause + SecoursDuDocument::Intervalle + 1;
        m_tempsDuSecours += 2 * saut;
        Form1& fenetre = *m_documents[etape.Argument(0, 1).toInt() - 1];
        m_copieAvant = NumeroDe(FichierDeSecours(fenetre.myqrt.TmpFolder));
        fenetre.Secours.Avancer(fenetre.myqrt, fenetre.Caption(), {m_tempsDuSecours - saut, 0});
        return AvancerSecours(m_tempsDuSecours);
    }
    static const QStringList sansDocument{u"ouvrir"_s, u"reprendre"_s, u"sauver-tout"_s, u"quitter"_s, u"lenteur"_s};
    Finir(sansDocument.contains(etape.nom) ? FaireSurFichier(etape) : FaireSurDocument(etape));
}

void CobayeEtapes::AvancerSecours(qint64 maintenant)
{
    Form1& fenetre = *m_documents[m_etapes[m_faites].Argument(0, 1).toInt() - 1];
    if (fenetre.Secours.Avancer(fenetre.myqrt, fenetre.Caption(), {maintenant, 0}))
        QTimer::singleShot(1, this, [this, maintenant] { AvancerSecours(maintenant); });
    else
        Finir(NumeroDe(FichierDeSecours(fenetre.myqrt.TmpFolder)) != m_copieAvant);
}

bool CobayeEtapes::FaireSurFichier(const Etape& etape)
{
    if (etape.nom == u"lenteur") {
        m_reponses.Lenteur = etape.arguments.toInt();
        return true;
    }
    if (etape.nom == u"quitter")
        return Quitter(etape.arguments);
    if (etape.nom == u"reprendre")
        return Reprendre();
    if (etape.nom == u"sauver-tout") {
        Commander(*m_documents.first(), u"mEnregistrerTout"_s);
        return std::ranges::all_of(m_documents, [](const Form1* fenetre) { return EstSauve(*fenetre); });
    }
    if (!OuvrirFichier(m_cadre, etape.arguments, TypeQrt2, true))
        return false;
    m_documents.append(dynamic_cast<Form1*>(m_cadre.Documents().back()));
    return true;
}

bool CobayeEtapes::FaireSurDocument(const Etape& etape)
{
    Form1& fenetre = *m_documents[etape.Argument(0, 2).toInt() - 1];
    const QString reste = etape.Argument(1, 2);
    if (etape.nom == u"editer")
        return Editer(fenetre, reste);
    if (etape.nom == u"appliquer")
        return Appliquer(fenetre, reste);
    if (etape.nom == u"inscrire")
        return Inscrire(fenetre, reste);
    if (etape.nom == u"image")
        return MettreImage(fenetre, etape.Argument(1, 4), etape.Argument(2, 4), etape.Argument(3, 4));
    if (etape.nom == u"sans-image")
        return OterImage(fenetre, reste);
    if (etape.nom == u"sauver") {
        Commander(fenetre, u"mEnregistrer"_s);
        return EstSauve(fenetre);
    }
    if (etape.nom == u"sauver-sous")
        return SauverSous(fenetre, etape);
    if (etape.nom == u"secours-entier")
        return fenetre.Secours.EcrireMaintenant(fenetre.myqrt, fenetre.Caption());
    if (etape.nom == u"fermer")
        return Fermer(fenetre, reste);
    if (etape.nom != u"dire")
        return false;
    DireLigne("etat " + EtatDuDocument(fenetre.myqrt));
    return true;
}

bool CobayeEtapes::Reprendre()
{
    const std::vector<DossierLaisse> laisses = ChercherLaisses();
    for (const DossierLaisse& laisse : laisses) {
        if (!OuvrirLaisse(m_cadre, laisse))
            return false;
        m_documents.append(dynamic_cast<Form1*>(m_cadre.Documents().back()));
    }
    return !laisses.empty();
}

bool CobayeEtapes::SauverSous(Form1& fenetre, const Etape& etape)
{
    m_reponses.TypeDeCible = etape.Argument(1, 3).toInt();
    m_reponses.Cible = etape.Argument(2, 3);
    Commander(fenetre, u"mEnregistrerSous"_s);
    return EstSauve(fenetre);
}

bool CobayeEtapes::Fermer(Form1& fenetre, const QString& reponse)
{
    m_reponses.ALaFermeture = reponse == u"oui" ? RepOui : RepNon;
    fenetre.Decharger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto ouverts = m_cadre.Documents();
    return std::ranges::find(ouverts, &fenetre) == ouverts.end();
}

bool CobayeEtapes::Quitter(const QString& reponse)
{
    m_reponses.ALaFermeture = reponse == u"oui" ? RepOui : RepNon;
    return m_cadre.close();
}
