// The document object: what scripts and plug-ins see of one open category. Its owner is Categorie.
#pragma once

#include "base/Drapeau.h"
#include "catalogue/table/MyLV.h"
#include "catalogue/texte/SaisieEnCours.h"

#include <QString>

#include <cstdint>

/// A waiting panel of the document window ("Chargement Veuillez patienter....").
class PanneauAttente
{
public:
    virtual ~PanneauAttente() = default;
    /// Centres the panel on the table and shows it, or hides it.
    virtual void Montrer(bool visible) = 0;
};

class QrtClass
{
public:
    QrtClass();

    QString ScriptChemin; ///< path of the script attached to the document
    bool ScriptEdition = false;

    /// The form in which plain Save writes: "1" bare text, "2" archive, "3" after Save As to bare text, or empty.
    QString FileType;

    Drapeau IlFautSauver;      ///< there are unsaved changes
    int32_t IndexColPrete = 0; ///< 1-based column titled "Prêté"; -1 while none is known
    int32_t dependantcol = 0;  ///< 1-based dependant column; 0 for none

    /// Full path of the document's file; empty for a category never saved. Setting it sets filename.
    const QString& CheminReel() const { return m_cheminReel; }
    void SetCheminReel(const QString& chemin);
    /// The file name part of CheminReel.
    const QString& filename() const { return m_filename; }

    /// Full path of the program's settings file, fixed when the object is made.
    const QString& ZelvaneIni() const { return m_zelvaneIni; }

    /// Set while an editor is open on the document.
    LireSaisie Saisie;

    QString TmpFolder; ///< the document's private folder, with a trailing separator

    /// Backups made since the document was opened, as text; inside a 16-bit integer.
    QString NbSauv() const { return QString::number(m_nbSauv); }
    /// False when the text is no number of 16 bits; the count stays.
    bool SetNbSauv(const QString& texte);

    /// The table: the one that the document's window displays. Set by the document's owner (Categorie).
    ::MyLV* MyLV = nullptr;

    PanneauAttente* wait = nullptr;   ///< shown during a save
    PanneauAttente* Ouvrir = nullptr; ///< shown during loading

    int32_t ItemsCount() const { return MyLV ? MyLV->ListItems.Count() : 0; }
    int32_t ColCount() const { return MyLV ? MyLV->ColumnHeaders.Count() : 0; }
    /// Number of selected entries.
    int32_t SelItemsCount() const { return MyLV ? MyLV->NombreDeSelectionnees() : 0; }
    /// Removes all entries, then all columns.
    void ClearLV();

private:
    QString m_cheminReel;
    QString m_filename;
    QString m_zelvaneIni;
    int16_t m_nbSauv = 0;
};
