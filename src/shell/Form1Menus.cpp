// The menus of a document window, as tables: one line an item, with the command that it runs.
#include "shell/Form1.h"

#include "catalogue/documents/Cadre.h"
#include "kit/Icones.h"
#include "shell/Relier.h"
#include "ui_Form1.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int NombreDeRecents = 5;

/// What kind of line a menu has.
enum class Genre {
    Commande,
    Touche,     ///< a command whose key is the table's: the menu shows it, and the table acts on it
    Coche,      ///< a state of the view, on or off
    DuCadre,    ///< the frame's item of the same name, reached from here
    Separateur, ///< with a name: only on show while there is something below it
    Cache,      ///< on show once it has a text
};

} // namespace

struct Form1::Item
{
    const char* nom = nullptr;
    const char16_t* caption = u"";
    const char* touches = ""; ///< shortcuts, parted by "; "
    const char* icone = "";
    /// Without a command, an item stands there disabled: its command is not built yet.
    void (Form1::*commande)() = nullptr;
    Genre genre = Genre::Commande;
};

struct Form1::Menu
{
    const char* nom;
    const char16_t* caption;
    std::span<const Item> items;
};

/// Menus and items stand here in the order in which they are seen. Names are those that translations know.
struct Form1::Menus
{
    static constexpr Item Trait{.genre = Genre::Separateur};

    static constexpr Item Nouveau[] = {
        {"mCategorie", u"Catégorie", "Ctrl+N", "addcat", &Form1::mCategorie_Click},
        {"mScriptDEdition", u"Script d'Edition", "", "", &Form1::SansEffet},
    };
    static constexpr Item Fichier[] = {
        {"mOuvrir", u"&Ouvrir", "Ctrl+O", "open", &Form1::mOuvrir_Click},
        {"mImporter", u"&Importer", "", "import", &Form1::SansEffet},
        Trait,
        {"mEnregistrer", u"&Enregistrer", "Ctrl+S", "save", &Form1::mEnregistrer_Click},
        {"mEnregistrerSous", u"Enregistrer &Sous", "Ctrl+Shift+S", "saveas", &Form1::mEnregistrerSous_Click},
        {"mEnregistrerTout", u"Enregistrer To&ut", "", "saveall", &Form1::mEnregistrerTout_Click},
        Trait,
        {"mExporter", u"E&xporter", "", "export"},
        {"mImprimer", u"Im&primer", "Ctrl+P", "print"},
        Trait,
        {"mFermer", u"&Fermer", "Ctrl+W; Ctrl+F4", "close", &Form1::Decharger},
        {"mFermerTout", u"Fermer &Tout", "Ctrl+Shift+W", "closeall", &Form1::mFermerTout_Click},
        {.nom = "mBarRecent", .genre = Genre::Separateur},
        {"mRecent_0", u"", "", "", nullptr, Genre::Cache},
        {"mRecent_1", u"", "", "", nullptr, Genre::Cache},
        {"mRecent_2", u"", "", "", nullptr, Genre::Cache},
        {"mRecent_3", u"", "", "", nullptr, Genre::Cache},
        {"mRecent_4", u"", "", "", nullptr, Genre::Cache},
        Trait,
        {"mQuitter", u"&Quitter", "Ctrl+Q", "quit", &Form1::mQuitter_Click},
    };
    static constexpr Item Edition[] = {
        {"mEntree", u"&Ajouter une entrée", "Ctrl+E", "addentree", &Form1::mEntree_Click},
        {"mModifierEnree", u"&Editer l'entrée", "Enter", "editentree", &Form1::mModifierEnree_Click, Genre::Touche},
        {"mSupprimerEntree", u"&Supprimer l'entrée", "Del", "delentree", &Form1::mSupprimerEntree_Click, Genre::Touche},
        {"mVoir", u"&Voir l'entrée", "Shift+Enter", "voir", &Form1::mVoir_Click, Genre::Touche},
        Trait,
        {"mCopier", u"&Copier", "Ctrl+C", "copy"},
        {"mColler", u"C&oller", "Ctrl+V", "paste"},
        {"mCopieParLot", u"Copie par &lot"},
        Trait,
        {"mRechercher", u"&Rechercher", "Ctrl+F", "rechercher"},
        {"mRemplacer", u"Re&mplacer", "", "", &Form1::SansEffet},
        Trait,
        {"mModifierCategorie", u"Editer la ca&tégorie", "Ctrl+M", "editcat"},
        {"mModifierCommentaires", u"Comme&ntaires", "", "showtexte", &Form1::mModifierCommentaires_Click},
        {"mTxtPreEnregistre", u"Textes &pré-enregistrés"},
    };
    static constexpr Item Affichage[] = {
        {"mAfficherGrille", u"Afficher la &grille", "", "", &Form1::GrilleBasculee, Genre::Coche},
        {"mAfficherImages", u"Afficher les &images", "", "", &Form1::ImagesBasculees, Genre::Coche},
        {"mGrandesIcones", u"G&randes Icones", "", "", &Form1::GrandesIconesBasculees, Genre::Coche},
        Trait,
        {"mActualiser", u"&Actualiser", "F5", "refresh", &Form1::mActualiser_Click},
        Trait,
        {"mRedimentionAutomatique", u"Redimensionner selon le &contenu", "Ctrl+R", "largeur",
         &Form1::mRedimentionAutomatique_Click},
        {"mRedimAuto2", u"Redimensionner selon la &fenêtre", "Ctrl+D", "", &Form1::mRedimAuto2_Click},
    };
    static constexpr Item Outils[] = {
        {"mFusionner2Colonnes", u"&Fusionner 2 colonnes"},
        {"mSeparer1ColonneEn2", u"&Séparer 1 colonne en 2"},
        {"mDupliquerUneColonne", u"&Dupliquer une colonne"},
        Trait,
        {"mFusionner2Categories", u"Fusionner &2 catégories", "", "", &Form1::mFusionner2Categories_Click},
        {"mComparer2Categories", u"&Comparer 2 catégories", "", "compare"},
        Trait,
        {"mStatistiques", u"S&tatistiques", "", "stats"},
    };
    static constexpr Item Pret[] = {
        {"mMarquerCommePrete", u"Marquer comme &Prêté", "", "prete"},
        {"mMarquerCommerendu", u"Marquer comme &Rendu", "", "rendu"},
        Trait,
        {"mOrganiserSesContacts", u"&Organiser ses contacts"},
        {"mEnvoyerMailAvertissement", u"&Envoyer un mail d'avertissement", "", "mail"},
    };
    static constexpr Item Plugin[] = {
        {.nom = "mPlugins_0", .genre = Genre::Cache}, {.nom = "mPlugins_1", .genre = Genre::Cache},
        {.nom = "mPlugins_2", .genre = Genre::Cache}, {.nom = "mPlugins_3", .genre = Genre::Cache},
        {.nom = "mPlugins_4", .genre = Genre::Cache}, {.nom = "mPlugins_5", .genre = Genre::Cache},
        {.nom = "mPlugins_6", .genre = Genre::Cache}, {.nom = "mPlugins_7", .genre = Genre::Cache},
        {"mPlusPlugins", u"Plus de plugins"},
    };
    static constexpr Item Options[] = {
        {"mConfiguration", u"&Configuration", "", "options", nullptr, Genre::DuCadre},
        {"mLangue", u"Langue", "", "langue", nullptr, Genre::DuCadre},
    };
    static constexpr Item Fenetre[] = {
        {"mEnCascade", u"En &cascade", "", "cascade", nullptr, Genre::DuCadre},
        {"mMosaiqueHorizontale", u"Mosaïque &horizontale", "", "mosaiqueh", nullptr, Genre::DuCadre},
        {"mMosaiqueVerticale", u"Mosaïque &verticale", "", "mosaiquev", nullptr, Genre::DuCadre},
        {"mArrangeIcones", u"&Arranger les icônes", "", "", nullptr, Genre::DuCadre},
        Trait,
        {"mMinimiserTout", u"&Minimiser tout", "", "reduire", nullptr, Genre::DuCadre},
        {"mRestaurerTout", u"&Restaurer tout", "", "restaurer", nullptr, Genre::DuCadre},
    };
    static constexpr Item Aide[] = {
        {"mAideDeZelvane", u"&Aide de Zelvane", "F1", "help", nullptr, Genre::DuCadre},
        {"mZelvaneSurLeWeb", u"&Zelvane sur le Web", "", "web", nullptr, Genre::DuCadre},
        Trait,
        {"mAPropos", u"A &Propos", "", "apropos", nullptr, Genre::DuCadre},
    };

    static constexpr Menu DansFichier{"mNouveau", u"&Nouveau", Nouveau};
    static constexpr Menu Barre[] = {
        {"mFichier", u"&Fichier", Fichier},
        {"mEdition", u"&Edition", Edition},
        {"mAffichage", u"&Affichage", Affichage},
        {"mOutils", u"Ou&tils", Outils},
        {"mPret", u"P&rêt", Pret},
        {"mPlugin", u"&Plugins", Plugin},
        {"mOptions", u"&Options", Options},
        {"mFenetre", u"Fe&nêtre", Fenetre},
        {"mAide", u"A&ide", Aide},
    };
};

// ---- building

void Form1::FaireMenus()
{
    for (const Menu& menu : Menus::Barre)
        m_ui->Menus->addMenu(FaireMenu(menu));
    auto* fichier = findChild<QMenu*>(u"mFichier"_s);
    fichier->insertMenu(fichier->actions().constFirst(), FaireMenu(Menus::DansFichier));
    for (int i = 0; i < NombreDeRecents; ++i)
        Relier(ItemNomme(u"mRecent_%1"_s.arg(i)), this, [this, i] { mRecent_Click(i); });
    ItemNomme(u"mAfficherImages"_s).setChecked(true);
    // Shown once there are plug-ins.
    findChild<QMenu*>(u"mPlugin"_s)->menuAction()->setVisible(false);
    Decorer();
    AccorderMenus();
}

/// Three menus have a picture in the bar.
void Form1::Decorer()
{
    const auto menus = m_ui->Menus->actions();
    for (const auto& [place, icone] : {std::pair(2, u"editentree"_s), {3, u"image"_s}, {5, u"prete"_s}})
        menus.at(place - 1)->setIcon(Icone(icone));
}

QMenu* Form1::FaireMenu(const Menu& menu)
{
    auto* fait = new QMenu(QString::fromUtf16(menu.caption), m_ui->Menus);
    fait->setObjectName(QLatin1StringView(menu.nom));
    for (const Item& item : menu.items)
        fait->addAction(FaireItem(item));
    connect(fait, &QMenu::aboutToShow, this, &Form1::AccorderMenus);
    return fait;
}

QAction* Form1::FaireItem(const Item& item)
{
    auto* fait = new QAction(QString::fromUtf16(item.caption), this);
    fait->setObjectName(QLatin1StringView(item.nom));
    fait->setMenuRole(QAction::NoRole);
    fait->setSeparator(item.genre == Genre::Separateur);
    fait->setCheckable(item.genre == Genre::Coche);
    fait->setVisible(item.genre != Genre::Cache && (item.genre != Genre::Separateur || !item.nom));
    fait->setIcon(Icone(QLatin1StringView(item.icone)));
    fait->setShortcuts(QKeySequence::listFromString(QLatin1StringView(item.touches), QKeySequence::PortableText));
    if (item.genre == Genre::Touche)
        fait->setShortcutContext(Qt::WidgetShortcut);
    if (item.genre == Genre::DuCadre) {
        m_itemsDuCadre.append(fait);
        connect(fait, &QAction::triggered, this, [this, fait] {
            if (QAction* modele = ItemDuCadre(*fait))
                modele->trigger();
        });
    } else if (item.commande) {
        Relier(*fait, this, [this, commande = item.commande] { (this->*commande)(); });
    }
    fait->setEnabled(item.commande || item.genre == Genre::Cache);
    return fait;
}

// ---- states

QAction& Form1::ItemNomme(const QString& nom) const
{
    return *findChild<QAction*>(nom, Qt::FindDirectChildrenOnly);
}

/// The item of the frame's own menus that goes by the same name.
QAction* Form1::ItemDuCadre(const QAction& item) const
{
    return CadreAutour() ? window()->findChild<QAction*>(item.objectName(), Qt::FindDirectChildrenOnly) : nullptr;
}

/// An item that would do nothing is disabled.
void Form1::AccorderMenus()
{
    const Cadre* cadre = CadreAutour();
    // One document alone is closed and saved by the plain commands.
    const bool plusieurs = cadre && cadre->Documents().size() > 1;
    ItemNomme(u"mFermerTout"_s).setEnabled(plusieurs);
    ItemNomme(u"mEnregistrerTout"_s).setEnabled(plusieurs);
    ItemNomme(u"mModifierEnree"_s).setEnabled(myqrt.SelItemsCount() > 0);
    ItemNomme(u"mRedimAuto2"_s).setEnabled(myqrt.ItemsCount() > 0);
    ItemNomme(u"mVoir"_s).setEnabled(myqrt.SelItemsCount() == 1);
    ItemNomme(u"mGrandesIcones"_s).setEnabled(BarresAutour());
    for (QAction* item : m_itemsDuCadre) {
        const QAction* modele = ItemDuCadre(*item);
        item->setEnabled(modele && modele->isEnabled());
    }
}

void Form1::MettreRecent(int index, const QString& chemin)
{
    QAction& recent = ItemNomme(u"mRecent_%1"_s.arg(index));
    recent.setVisible(!chemin.isEmpty());
    recent.setData(chemin);
    recent.setText(QString(chemin).replace(u'&', u"&&"_s));
}

void Form1::MontrerBarRecent(bool visible)
{
    ItemNomme(u"mBarRecent"_s).setVisible(visible);
}
