// One kind of export: what stands before the entries, for each of them, and behind. The lines and their oddities are
// those that readers of these files have met since there is such an export; EcrireExport goes over the entries.
#pragma once

#include "catalogue/table/MyLV.h"
#include "output/PlumeExport.h"

#include <QString>

#include <memory>
#include <vector>

/// What the user chose to have exported.
struct ChoixExport
{
    std::vector<bool> colonnes;       ///< one element a column: whether it is ticked
    bool selectionUniquement = false; ///< the selected entries alone
    bool numeroter = false;           ///< with the number of each entry, its position in the whole table
};

/// What is exported. The table stays as it is all the while.
struct SujetExport
{
    const MyLV& table;
    QString nom; ///< of the category's file, without folder
    ChoixExport choix;

    int Colonnes() const { return table.ColumnHeaders.Count(); }
    int Entrees() const { return table.ListItems.Count(); }
    const QString& Titre(int colonne) const { return table.ColumnHeaders(colonne).Text(); }
    /// From 1, like all numbers of columns here.
    bool Cochee(int colonne) const
    {
        return static_cast<size_t>(colonne) <= choix.colonnes.size() &&
               choix.colonnes[static_cast<size_t>(colonne) - 1];
    }
    /// Those of the columns `premiere` to `derniere` that are ticked.
    std::vector<int> Cochees(int premiere, int derniere) const;
};

class Ecrivain
{
public:
    explicit Ecrivain(const SujetExport& sujet) : m_sujet(sujet) {}
    virtual ~Ecrivain() = default;
    Ecrivain(const Ecrivain&) = delete;
    Ecrivain& operator=(const Ecrivain&) = delete;

    /// Whether every entry, included or not, is to be measured before anything is written.
    virtual bool DoitMesurer() const { return false; }
    virtual void Mesurer(const stockage::EntreeStockee&) {}

    virtual void EcrireTete(PlumeExport& plume) = 0;
    virtual void EcrireEntree(PlumeExport& plume, int numero, const stockage::EntreeStockee& entree) = 0;
    virtual void EcrirePied(PlumeExport& plume) = 0;

protected:
    const SujetExport& Sujet() const { return m_sujet; }

private:
    const SujetExport& m_sujet;
};

class ImagesDePage;

// Who made them keeps the subject, and the images, until they are gone.
std::unique_ptr<Ecrivain> EcrivainPageAvecImages(const SujetExport& sujet, ImagesDePage& images);
std::unique_ptr<Ecrivain> EcrivainPageSansImages(const SujetExport& sujet);
std::unique_ptr<Ecrivain> EcrivainTexteEncadre(const SujetExport& sujet);
std::unique_ptr<Ecrivain> EcrivainPointsVirgules(const SujetExport& sujet);
std::unique_ptr<Ecrivain> EcrivainTabulations(const SujetExport& sujet);
