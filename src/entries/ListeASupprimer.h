// The entries that a deletion would take, each with a check mark: what the dialog frmSuppr shows and deletes.
//
// The list refers to the table's entries by their positions and copies nothing of them: the table is not to change as
// long as the list is in use. Rows and columns count from 1.
#pragma once

#include "catalogue/table/MyLV.h"

#include <QString>

#include <functional>
#include <vector>

class Avancement;
class QrtClass;

class ListeASupprimer
{
public:
    /// Empty. `doc` is not owned and outlives the list.
    explicit ListeASupprimer(const QrtClass& doc) : m_doc(&doc) {}

    /// Lists the selected entries, all of them checked. With `avecDependantes`, in a category that has a dependant
    /// column, also those that depend on a selected entry above them. Those that stand higher are left out.
    void Remplir(bool avecDependantes, Avancement& avancement);
    void Vider();

    int Count() const { return static_cast<int>(m_lignes.size()); }
    int NbCoches() const { return m_nbCoches; }
    /// The entry in row 1 to Count.
    ListItemLu Entree(int ligne) const;

    bool EstCochee(int ligne) const { return m_lignes[static_cast<size_t>(ligne - 1)].cochee; }
    void Cocher(int premiere, int derniere, bool cochees);
    void Inverser();

    /// Sorts the rows by a column, ascending; by the column that they are sorted by already, the other way round. They
    /// stay sorted. Returns, for each row, the row that it was before.
    std::vector<int> Trier(int colonne);
    /// The column sorted by; 0 while the rows stand as in the table.
    int ColonneDeTri() const { return m_colonneDeTri; }
    bool EstDecroissant() const { return m_decroissant; }

private:
    struct Ligne
    {
        int position; // of the entry in the table
        bool cochee;
    };
    std::vector<int> Ordonner();

    const QrtClass* m_doc;
    std::vector<Ligne> m_lignes;
    int m_nbCoches = 0;
    int m_colonneDeTri = 0;
    bool m_decroissant = false;
};

/// Deletes the entries that are checked in `liste`, which is of no use afterwards but to be emptied. `supprimerImage`
/// is called, row by row, with the file of each image that such an entry has: a file that other entries name too is no
/// exception.
void SupprimerCochees(QrtClass& doc, const ListeASupprimer& liste,
                      const std::function<void(const QString& fichier)>& supprimerImage, Avancement& avancement);
