// The program's frame: it holds the document windows, their tabs, the tool bars and the menu bar.
#pragma once

#include "catalogue/documents/Cadre.h"
#include "catalogue/documents/FichierRecent.h"
#include "extensions/langue/TextesDeQt.h"
#include "extensions/plugins/PluginsEnFenetre.h"
#include "shell/ArrangerFenetres.h"
#include "shell/Form1.h"
#include "shell/InstanceClass.h"
#include "shell/ItemsDeCommandes.h"

#include <QMainWindow>

#include <memory>

class QMdiSubWindow;
class frmPopup;
class PanneauDAccueil;

namespace Ui {
class MDIForm1;
}

class MDIForm1 : public QMainWindow, public Cadre, public MenuRecents
{
    Q_OBJECT

public:
    explicit MDIForm1(QWidget* parent = nullptr);
    ~MDIForm1() override;

    /// Finds other instances of the program and hears from them.
    InstanceClass My_Instance;

    /// Whether a click on a tab brings its window to the front. Off while the strip follows the windows.
    bool OngletsActifs = true;

    std::vector<FenetreDocument*> Documents() const override;
    Form1* FenetreActive() const override;
    FenetreDocument& NouvelleFenetre() override;
    void AmenerDevant(FenetreDocument& fenetre) override;
    void AjouterOnglet(const FenetreDocument& fenetre) override;
    void MettreTitreOnglet(const FenetreDocument& fenetre, const QString& titre) override;

    /// Shows on the tab whether the document has unsaved changes, and has the tab tell its path.
    void MontrerEtatOnglet(const FenetreDocument& fenetre);

    void MettreRecent(int index, const QString& chemin) override;
    void MontrerBarRecent(bool visible) override;

    /// Selects the tab on which a mouse button was last released and brings its window to the front; null when there is
    /// no such tab.
    Form1* AmenerOngletRetenu();

    /// Whether the tool bar with large icons is the one on show.
    bool GrandesIcones() const;
    /// Changes from one tool bar to the other, and remembers that.
    void mGrandesIcones_Click();
    /// Shows in the buttons what the active window can do, and its states.
    void AccorderBarres();
    /// Pops up the menu of the table and of the picture at a point of the screen: MenuClickDroit with entries selected,
    /// MenuClickDroit3 without. Its commands work on the active window.
    void MontrerMenuClickDroit(bool avecSelection, const QPoint& endroit);
    /// Brings the check of mGrandesIcones in step with the tool bars.
    void RedrawAll();
    /// Gives the window and its tab the name of the document's file, as after a save; one that was never saved keeps
    /// the name it goes by. The recent files are rewritten.
    void MontrerNom(FenetreDocument& fenetre);
    /// Rewrites the recent files in the menus of the frame and of all documents.
    void MajRecents();
    /// Where the commands of the frame run: on the active window.
    LieuDeCommande Lieu();
    /// Applies the language to every open form: the frame, its documents, the pop-up menus and the dialogs on show.
    void langChange();

    void EnCascade();
    void EnMosaique(Mosaique sens);
    void ArrangerLesIcones();
    void MinimiserTout();
    void RestaurerTout();

protected:
    /// Asks every document first; one that refuses keeps the frame and all windows.
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    /// Watches the area for windows that go.
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void RelierInstance();
    void RelierBarres();
    void RelierMenus();
    void RelierAccueil();
    void MontrerRecentsALAccueil();
    void MontrerMenus(const Form1* active);
    void MontrerGrandesIcones(bool grandes);
    void SuivreFenetreActive();
    void SuivreOnglet();
    Form1* FenetreDeLOnglet(int numero) const;
    void FermerOnglet(int numero);
    void OuvrirEtNoter(const QStringList& chemins);
    void ColorierFond();
    QMdiSubWindow* CadreDe(const FenetreDocument& fenetre) const;

    std::unique_ptr<Ui::MDIForm1> m_ui;
    ItemsDeCommandes m_items;
    TextesDeQt m_textesDeQt;
    OuvreursDePlugins m_ouvreurs;
    ExporteursDePlugins m_exporteurs;
    frmPopup* m_popup = nullptr;
    PanneauDAccueil* m_accueil = nullptr; ///< on show while no document is open
    QList<QAction*> m_menusDuCadre;       ///< the frame's own, in the order of its bar
};
