// Tells which entries of one category are missing from another, in two lists, one for each direction. The categories
// are those of open documents: a file that is not open is opened first, and stays so.
#pragma once

#include "catalogue/table/MyLV.h"

#include <QDialog>

#include <array>
#include <memory>
#include <optional>

class Cadre;
class Comparaison;
class FenetreDocument;
class QComboBox;

namespace Ui {
class frmCompare1;
}

class frmCompare1 : public QDialog
{
    Q_OBJECT

public:
    /// The documents are those of `cadre`, which lives longer.
    explicit frmCompare1(Cadre& cadre, QWidget* parent = nullptr);
    ~frmCompare1() override;

    /// The program's one window of comparisons, which deletes itself when it is closed. Brings the one there is to the
    /// front, modal or not as it was.
    static void Montrer(Cadre& cadre, QWidget& parent, Qt::WindowModality modalite);

protected:
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    /// A document that is compared. The user may close it while events are let through.
    struct Choisie
    {
        QString chemin;
        FenetreDocument* fenetre = nullptr; ///< null: none is open under that path
        std::weak_ptr<const void> vie;
    };
    using Choisies = std::array<Choisie, 2>;
    using Chemins = std::array<QString, 2>;

    void Brancher();
    void RemplirListes();
    void ChercherFichier(int liste);
    void Inverser();
    void Imprimer();
    void SupprimerChoisies();
    void MarquerTri();

    void Comparer();
    void ComparerLesChoisies();
    void OuvrirAuBesoin(int liste);
    Choisies ChercherChoisies(const Chemins& chemins) const;
    bool SontOuvertes(const Choisies& choisies) const;
    std::optional<std::array<int, 2>> DemanderColonnes(const MyLV& a, const MyLV& b);
    void ComparerTables(const Choisies& choisies, std::array<int, 2> colonnes);
    bool Parcourir(Comparaison& comparaison, const Choisies& choisies);
    void Conclure(const Choisies& choisies);
    bool LaisserVenir() const;
    void MettreDevant();

    QComboBox& Liste(int liste) const;

    Cadre& m_cadre;
    std::unique_ptr<Ui::frmCompare1> m_ui;
    MyLV m_seulesDeA; // of ListView1
    MyLV m_seulesDeB; // of ListView2
    QString m_titre;  // of the window without results
    bool m_enCours = false;
};
