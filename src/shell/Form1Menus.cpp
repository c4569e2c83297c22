// The menus of a document window, as tables: one line an item, with the row of the table of commands that it stands
// for.
#include "shell/Form1.h"

#include "extensions/plugins/PluginsEnFenetre.h"
#include "extensions/plugins/mPlugin.h"
#include "kit/Icones.h"
#include "shell/ItemsDeCommandes.h"
#include "shell/ListeDesFenetres.h"
#include "shell/MDIForm1.h"
#include "shell/Relier.h"
#include "ui_Form1.h"

#include <QMenu>
#include <QMenuBar>

#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int NombreDeRecents = 5;
constexpr int NombreDePlugins = 8;

/// What kind of line a menu has.
enum class Genre {
    Commande,
    Separateur, ///< with a name: only on show while there is something below it
    Cache,      ///< on show once it has a text
};

} // namespace

struct Form1::Item
{
    const char* nom = nullptr;
    const char16_t* commande = u"";
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
        {"mCategorie", u"addcat"},
        {"mScriptDEdition", u"script"},
    };
    static constexpr Item Fichier[] = {
        {"mOuvrir", u"ouvrir"},
        {"mImporter", u"importer"},
        Trait,
        {"mEnregistrer", u"save"},
        {"mEnregistrerSous", u"saveas"},
        {"mEnregistrerTout", u"saveall"},
        Trait,
        {"mExporter", u"exporter"},
        {"mImprimer", u"print"},
        Trait,
        {"mFermer", u"fermer"},
        {"mFermerTout", u"fermertout"},
        {.nom = "mBarRecent", .genre = Genre::Separateur},
        {.nom = "mRecent_0", .genre = Genre::Cache},
        {.nom = "mRecent_1", .genre = Genre::Cache},
        {.nom = "mRecent_2", .genre = Genre::Cache},
        {.nom = "mRecent_3", .genre = Genre::Cache},
        {.nom = "mRecent_4", .genre = Genre::Cache},
        Trait,
        {"mQuitter", u"quitter"},
    };
    static constexpr Item Edition[] = {
        {"mEntree", u"addentree"},
        {"mModifierEnree", u"editentree"},
        {"mSupprimerEntree", u"delentree"},
        {"mVoir", u"voir"},
        Trait,
        {"mCopier", u"copier"},
        {"mColler", u"coller"},
        {"mCopieParLot", u"copieparlot"},
        Trait,
        {"mRechercher", u"rechercher"},
        {"mRemplacer", u"remplacer"},
        Trait,
        {"mModifierCategorie", u"editcat"},
        {"mModifierCommentaires", u"commentaire"},
        {"mTxtPreEnregistre", u"textes"},
    };
    static constexpr Item Affichage[] = {
        {"mAfficherGrille", u"grille"},          {"mAfficherImages", u"image"},
        {"mGrandesIcones", u"grandesicones"},    Trait,
        {"mActualiser", u"actualiser"},          Trait,
        {"mRedimentionAutomatique", u"ajuster"}, {"mRedimAuto2", u"redimensionner"},
    };
    static constexpr Item Outils[] = {
        {"mFusionner2Colonnes", u"fusioncolonnes"},
        {"mSeparer1ColonneEn2", u"separer"},
        {"mDupliquerUneColonne", u"dupliquer"},
        Trait,
        {"mFusionner2Categories", u"fusioncategories"},
        {"mComparer2Categories", u"comparer"},
        Trait,
        {"mStatistiques", u"statistiques"},
    };
    static constexpr Item Pret[] = {
        {"mMarquerCommePrete", u"preter"},      {"mMarquerCommerendu", u"rendu"},       Trait,
        {"mOrganiserSesContacts", u"contacts"}, {"mEnvoyerMailAvertissement", u"mail"},
    };
    static constexpr Item Plugin[] = {
        {.nom = "mPlugins_0", .genre = Genre::Cache},
        {.nom = "mPlugins_1", .genre = Genre::Cache},
        {.nom = "mPlugins_2", .genre = Genre::Cache},
        {.nom = "mPlugins_3", .genre = Genre::Cache},
        {.nom = "mPlugins_4", .genre = Genre::Cache},
        {.nom = "mPlugins_5", .genre = Genre::Cache},
        {.nom = "mPlugins_6", .genre = Genre::Cache},
        {.nom = "mPlugins_7", .genre = Genre::Cache},
        {"mPlusPlugins", u"plusplugins"},
    };
    static constexpr Item Options[] = {
        {"mConfiguration", u"configuration"},
        {"mLangue", u"langue"},
    };
    static constexpr Item Fenetre[] = {
        {"mEnCascade", u"cascade"},
        {"mMosaiqueHorizontale", u"mosaiqueh"},
        {"mMosaiqueVerticale", u"mosaiquev"},
        {"mArrangeIcones", u"arranger"},
        Trait,
        {"mMinimiserTout", u"reduire"},
        {"mRestaurerTout", u"restaurer"},
    };
    static constexpr Item Aide[] = {
        {"mAideDeZelvane", u"pages"},
        {"mZelvaneSurLeWeb", u"web"},
        Trait,
        {"mAPropos", u"boite"},
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
    new ListeDesFenetres(*findChild<QMenu*>(u"mFenetre"_s), m_cadre);
    RemplirPlugins();
    Decorer();
    AccorderMenus();
}

/// The menu is there once there is a plug-in for it. Of eight items the last one stays unused: it is meant. What
/// follows the seventh plug-in is not even registered; frmPlugins has it all.
void Form1::RemplirPlugins()
{
    int numero = 1;
    for (const QString& fichier : FichiersDePlugins()) {
        if (numero == NombreDePlugins)
            break;
        EnregistrerDll(CheminDuPlugin(fichier), true);
        if (!PluginEstAutre(NomDObjet(fichier)))
            continue;
        QAction& item = ItemNomme(u"mPlugins_%1"_s.arg(numero - 1));
        const QString nom = NomDePlugin(fichier);
        item.setText(QString(nom).replace(u'&', u"&&"_s));
        item.setVisible(true);
        Relier(item, this, [this, nom] { LancerPlugin(nom, *this); });
        ++numero;
    }
    findChild<QMenu*>(u"mPlugin"_s)->menuAction()->setVisible(numero > 1);
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
    auto* fait = new QAction(this);
    fait->setObjectName(QLatin1StringView(item.nom));
    fait->setMenuRole(QAction::NoRole);
    fait->setSeparator(item.genre == Genre::Separateur);
    fait->setVisible(item.genre != Genre::Cache && (item.genre != Genre::Separateur || !item.nom));
    if (item.genre == Genre::Commande)
        m_items->Brancher(*fait, item.commande);
    return fait;
}

// ---- states

QAction& Form1::ItemNomme(const QString& nom) const
{
    return *findChild<QAction*>(nom, Qt::FindDirectChildrenOnly);
}

void Form1::AccorderMenus()
{
    m_items->Accorder();
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
