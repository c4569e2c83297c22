// The editor through which entries are typed: one row a column, and one field for the value of the selected row.
//
// It serves three callers. Editing one entry it writes to the table by itself, when it is validated and whenever the
// user goes on to another entry. Adding an entry or editing many (Charge) it only gathers values, and its caller writes
// them.
//
// The caller makes the form, sets the fields, fills the rows (RemplirColonnes, or ChargerEntree for one entry), shows
// it with exec() and reads Valide, Modifie, IndexEntree, the rows and ImgTag.
#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>

class MyLV;
class QKeyEvent;
struct ImageRecue;

namespace Ui {
class frmEditEntree;
}

class frmEditEntree : public QDialog
{
    Q_OBJECT

public:
    explicit frmEditEntree(QWidget* parent = nullptr);
    ~frmEditEntree() override;

    bool Charge = false;     ///< add or edit many: the form writes no entry, and there is no previous and no next one
    bool Valide = false;     ///< closed with btAjouter
    bool Referme = false;    ///< was closed once; who shows the form again clears it first
    QString CheminImages;    ///< the document's folder, with a trailing separator
    MyLV* Table = nullptr;   ///< the document's table, not owned
    int16_t IndexEntree = 0; ///< 1-based position of the entry shown; 0 for none
    bool Modifie = false;    ///< starts as the document's IlFautSauver; set by each write

    /// Runs after each write, while the form goes on.
    std::function<void()> EntreeEcrite;
    /// Brings an entry (from 1) into view in the document's table.
    std::function<void(int)> RendreVisible;
    /// Asks for an image: given the folder and the present name, returns what ChoisirImage does.
    std::function<QString(const QString&, const QString&)> DemanderImage;

    /// IndexEntree for an entry at `position`; 0 for one beyond 32767, which cannot be edited: ChargerEntree and
    /// EnregistrerEntree do nothing then.
    static int16_t IndexPour(int position);

    /// The text of btAjouter.
    void MettreCaptionAjouter(const QString& caption);
    /// Hides btPrecedent and btSuivant; their keys do nothing then.
    void CacherNavigation();

    // The rows of LV, counted from 1 like the columns.
    /// A row behind those there are. `textes`: the column's pre-recorded texts. The first one becomes the selected row.
    void AjouterLigne(const QString& titre, const QString& valeur, const QString& textes);
    /// One row with an empty value for each column of Table.
    void RemplirColonnes();
    int NombreDeLignes() const;
    QString Titre(int ligne) const;
    QString Valeur(int ligne) const;
    QString Textes(int ligne) const;
    QStringList Valeurs() const;

    /// Img.Tag: the bare file name of the entry's image, or empty.
    const QString& ImgTag() const { return m_image; }

    /// Whether rows or image are others than they were when the form was filled, or last wrote.
    bool EstTouche() const { return Contenu() != m_depart; }

    /// Fills rows and image from the entry at IndexEntree; nothing happens when there is none. An entry without an
    /// image leaves the image zone as it is.
    void ChargerEntree();
    /// Writes rows and image to the entry at IndexEntree; nothing happens when there is none or when RefuserVide.
    void EnregistrerEntree();
    /// Shows the value and the texts of the selected row in Combo1; without one, Combo1 loses its list.
    void ChargerCombo();

    /// True when every row is empty; the user is told so then ("msg65").
    bool RefuserVide() const;
    /// Gives the columns of Table the pre-recorded texts of the rows.
    void EcrireTextes();

    void done(int resultat) override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    enum class Sens { Precedente, Suivante };

    /// Values, texts and image.
    QStringList Contenu() const;

    void Brancher();
    void MesurerControles();

    void MettreLargeurCombo();
    void NommerChamp();
    void EcrireValeur(const QString& valeur);
    void DonnerFocusAuChamp();

    bool ToucheDuChamp(const QKeyEvent& touche);
    void ToucheEntree(Qt::KeyboardModifiers modificateurs);
    void PrendreTexte(int numero);
    bool ToucheDeListe(const QKeyEvent& touche);

    bool RefuserBarre();
    void Ajouter();
    void Aller(Sens sens);
    void MontrerEntree(int position);
    void Memoriser();
    void Oublier();
    void ChangerImage();
    void PrendreRecue(const ImageRecue& recue);
    void MontrerImage();

    std::unique_ptr<Ui::frmEditEntree> m_ui;
    QString m_nomDuChamp; ///< of Combo1 while no row is selected
    QString m_image;
    QStringList m_depart; ///< what Contenu was at first
};
