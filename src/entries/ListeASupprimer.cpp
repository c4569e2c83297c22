#include "entries/ListeASupprimer.h"

#include "base/Avancement.h"
#include "catalogue/table/Collation.h"
#include "catalogue/texte/Dependance.h"
#include "catalogue/texte/QrtClass.h"
#include "catalogue/texte/ValeursVues.h"
#include "images/FichierImage.h"

#include <algorithm>

void ListeASupprimer::Remplir(bool avecDependantes, Avancement& avancement)
{
    Vider();
    const bool dependance = avecDependantes && EstDependante(*m_doc);
    const MyLV& table = *m_doc->MyLV;
    const int total = table.ListItems.Count();
    ValeursVues vues;
    for (int i = 1; i <= total; ++i) {
        avancement.Avancer(i, total);
        const bool choisie = table.EstSelectionnee(i);
        const QString valeur = dependance ? ValeurDependante(*m_doc, table.ListItems(i)) : QString();
        if (choisie || (dependance && vues.Contient(valeur)))
            m_lignes.push_back({i, true});
        if (choisie && dependance)
            vues.Ajouter(valeur);
    }
    m_nbCoches = Count();
    if (m_colonneDeTri > 0)
        Ordonner();
}

void ListeASupprimer::Vider()
{
    m_lignes.clear();
    m_nbCoches = 0;
}

ListItemLu ListeASupprimer::Entree(int ligne) const
{
    return m_doc->MyLV->ListItems(m_lignes[static_cast<size_t>(ligne - 1)].position);
}

void ListeASupprimer::Cocher(int premiere, int derniere, bool cochees)
{
    for (int i = std::max(premiere, 1); i <= std::min(derniere, Count()); ++i) {
        bool& cochee = m_lignes[static_cast<size_t>(i - 1)].cochee;
        m_nbCoches += int(cochees) - int(cochee);
        cochee = cochees;
    }
}

void ListeASupprimer::Inverser()
{
    for (Ligne& ligne : m_lignes)
        ligne.cochee = !ligne.cochee;
    m_nbCoches = Count() - m_nbCoches;
}

std::vector<int> ListeASupprimer::Trier(int colonne)
{
    m_decroissant = colonne == m_colonneDeTri && !m_decroissant;
    m_colonneDeTri = colonne;
    return Ordonner();
}

std::vector<int> ListeASupprimer::Ordonner()
{
    ClesDeTri cles(m_lignes.size());
    for (const Ligne& ligne : m_lignes)
        cles.Ajouter(m_doc->MyLV->StockageDe(ligne.position).Champ(m_colonneDeTri - 1));
    std::vector<int> avant;
    std::vector<Ligne> lignes;
    avant.reserve(m_lignes.size());
    lignes.reserve(m_lignes.size());
    for (const uint32_t numero : cles.Ordre(m_decroissant)) {
        avant.push_back(static_cast<int>(numero) + 1);
        lignes.push_back(m_lignes[numero]);
    }
    m_lignes = std::move(lignes);
    return avant;
}

void SupprimerCochees(QrtClass& doc, const ListeASupprimer& liste,
                      const std::function<void(const QString& fichier)>& supprimerImage, Avancement& avancement)
{
    std::vector<int> positions;
    positions.reserve(static_cast<size_t>(liste.NbCoches()));
    for (int ligne = 1; ligne <= liste.Count(); ++ligne) {
        avancement.Avancer(ligne, liste.Count());
        if (!liste.EstCochee(ligne))
            continue;
        const ListItemLu entree = liste.Entree(ligne);
        if (const QString fichier = FichierImage(doc.TmpFolder, entree.Tag()); !fichier.isEmpty())
            supprimerImage(fichier);
        positions.push_back(entree.Index());
    }
    // Together, so that the time does not grow with the square of their number.
    doc.MyLV->ListItems.Retirer(positions);
}
