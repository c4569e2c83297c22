// What the status line of a document's window tells: the counts of entries on the left, then what the last save did; on
// the right whether there are unsaved changes, what the table is sorted by, and where the user is in it.
#pragma once

#include <QObject>

class Categorie;
class QLabel;
class QStatusBar;

class LigneDEtat : public QObject
{
    Q_OBJECT

public:
    /// The line of `doc` in `barre`; both live longer, the line belongs to `barre`.
    LigneDEtat(QStatusBar& barre, const Categorie& doc);

    /// Shows it all anew.
    void Montrer();
    /// The whole category has come into its file: tells so, until something changes again.
    void MontrerEnregistrement();
    /// The font of the window has changed.
    void EcarterComptes();

private:
    QLabel* Panneau(const QString& nom);
    void MontrerComptes();
    void MontrerTri();
    void MontrerModification();

    QStatusBar& m_barre;
    const Categorie& m_doc;
    QLabel* m_nombre;
    QLabel* m_choisies;
    QLabel* m_fait;
    QLabel* m_marque; ///< picture of unsaved changes
    QLabel* m_modifie;
    QLabel* m_tri;
    QLabel* m_place;
};
