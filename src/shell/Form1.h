// The window of one open category: its table, its images panel, its status line, its waiting panels and its menus,
// which stand in the frame's menu bar while it is active.
#pragma once

#include "catalogue/documents/FenetreDocument.h"
#include "catalogue/documents/FichierRecent.h"
#include "shell/Commandes.h"
#include "vue/VueTable.h"

#include <QMainWindow>

#include <memory>

class Infobulle;
class ItemsDeCommandes;
class LigneDEtat;
class MDIForm1;
class PanneauImage;
class QAction;
class QLabel;
class QMenu;
class QTcpSocket;

namespace Ui {
class Form1;
}

/// Values of the setting SizeForm1: the state in which documents are shown.
enum EtatDeForm1 { Normale = 0, Reduite = 1, Agrandie = 2 };

class Form1 : public QMainWindow, public FenetreDocument, public MenuRecents
{
    Q_OBJECT

public:
    /// A window of the frame `cadre`, which lives longer.
    explicit Form1(MDIForm1& cadre, QWidget* parent = nullptr);
    ~Form1() override;

    void Decharger() override;

    QString Caption() const override { return windowTitle(); }
    void SetCaption(const QString& titre) override { setWindowTitle(titre); }

    /// Shows the counts of entries and of selected entries, the picture of the entry with the focus, and the states
    /// of the view; with `miseEnPage` also the panels and the font anew.
    void RedrawAll(bool miseEnPage = false) override;
    /// Shows the picture of the entry in position `index`; clears the panel when there is none to show. A picture that
    /// cannot be loaded leaves the panel as it was.
    void AfficheImageEnCours(int index);
    void MontrerImage(const QString& fichier) override;
    void RendreVisible(int ligne) override;
    /// Shows or hides the images panel, and remembers that for documents opened later.
    void mAfficherImages_Click() override;
    void mModifierCategorie_Click() override;
    void mModifierCommentaires_Click() override;
    void mRechercher_Click() override;

    QTcpSocket* wck_http; ///< never opened

    void MettreRecent(int index, const QString& chemin) override;
    void MontrerBarRecent(bool visible) override;

    VueTable& ListView1() const;
    bool ImagesMontrees() const { return m_images; }
    /// Where the commands of this window run.
    LieuDeCommande Lieu();

protected:
    /// Closes only when no save runs and the changes are saved or given up. The document's folder goes then, unless
    /// the document asks to keep it.
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void BrancherTable();
    void BrancherCadre();

    void EtatChange(Qt::WindowStates avant, Qt::WindowStates apres);
    void Activer();
    void GarderEtat() const;

    void MontrerEtat();
    void AccorderMenus();
    void MettreEnPage();
    void AppliquerPolice();

    void EntetePressee(int colonne);
    void ToucheDeCommande(VueTable::Touche touche);
    void DoubleClicTable();
    void DoubleClicImage();
    QPoint PlaceDuFocus() const;
    void TirerLesEntrees();
    void TexteDepose(const QString& texte);
    void ClicDroitTable(const QPoint& place);
    void ClicDroitImage(const QPoint& place);

    struct Item;
    struct Menu;
    struct Menus;
    void FaireMenus();
    void RemplirPlugins();
    void Decorer();
    QMenu* FaireMenu(const Menu& menu);
    QAction* FaireItem(const Item& item);
    QAction& ItemNomme(const QString& nom) const;
    void mRecent_Click(int index);
    bool EnregistrerPourRechercher();
    void Lancer(QStringView cle);

    MDIForm1& m_cadre;
    std::unique_ptr<Ui::Form1> m_ui;
    std::unique_ptr<ItemsDeCommandes> m_items;
    bool m_images = true; ///< the images panel is on show
    LigneDEtat* m_etat = nullptr;
    QLabel* m_bulle = nullptr;
    Infobulle* m_infobulle = nullptr;
};
