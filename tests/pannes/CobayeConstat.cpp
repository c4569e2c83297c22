#include "pannes/CobayeConstat.h"

#include "base/DossiersDeCommande.h"
#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "pannes/CobayeReponses.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

QJsonArray Lignes(MyLV& table)
{
    QJsonArray lignes;
    for (int i = 1; i <= table.ListItems.Count(); ++i) {
        const ListItem entree = table.ListItems(i);
        lignes.append(QJsonArray::fromStringList(entree.Valeurs() << entree.Tag()));
    }
    return lignes;
}

QJsonObject Fichiers(const QString& dossier)
{
    QJsonObject fichiers;
    for (const QString& nom : QDir(dossier).entryList(QDir::Files | QDir::Hidden)) {
        QFile fichier(dossier + nom);
        QCryptographicHash empreinte(QCryptographicHash::Sha256);
        const bool lisible = fichier.open(QIODevice::ReadOnly) && empreinte.addData(&fichier);
        if (nom != u"Zelvane.qrt" && nom != u"Zelvane.utf8")
            fichiers.insert(nom, lisible ? QString::fromLatin1(empreinte.result().toHex()) : u"illisible"_s);
    }
    return fichiers;
}

QJsonObject Etat(const Categorie& doc)
{
    return {{u"lignes"_s, Lignes(*doc.MyLV)}, {u"fichiers"_s, Fichiers(doc.TmpFolder)}};
}

void Dire(const QJsonObject& objet)
{
    DireLigne(QJsonDocument(objet).toJson(QJsonDocument::Compact));
}

void DireOuverture(const Cadre& cadre, QJsonObject constat, bool ouvert)
{
    constat.insert(u"ouvert"_s, ouvert);
    if (ouvert) {
        const QJsonObject etat = Etat(cadre.Documents().back()->myqrt);
        constat.insert(u"lignes"_s, etat.value("lignes"_L1));
        constat.insert(u"fichiers"_s, etat.value("fichiers"_L1));
    }
    Dire(constat);
}

} // namespace

QByteArray EtatDuDocument(const Categorie& doc)
{
    return QJsonDocument(Etat(doc)).toJson(QJsonDocument::Compact);
}

void Constater(Cadre& cadre, const QStringList& chemins)
{
    SupprimerDossiersDeCommande();
    const std::vector<DossierLaisse> laisses = ChercherLaisses();
    for (const DossierLaisse& laisse : laisses) {
        const QJsonObject constat{{u"genre"_s, u"secours"_s},
                                  {u"chemin"_s, laisse.chemin},
                                  {u"modifie"_s, laisse.modifie},
                                  {u"enregistree"_s, laisse.enregistree}};
        DireOuverture(cadre, constat, OuvrirLaisse(cadre, laisse));
    }
    for (const QString& chemin : chemins) {
        const QJsonObject constat{{u"genre"_s, u"fichier"_s}, {u"chemin"_s, chemin}};
        DireOuverture(cadre, constat, OuvrirFichier(cadre, chemin, TypeQrt2, true));
    }
}
