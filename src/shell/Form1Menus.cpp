// The menus of a document window.
#include "shell/Form1.h"

#include "base/Const_Vrac.h"
#include "catalogue/Cadre.h"
#include "catalogue/Commentaires.h"
#include "catalogue/OuvrirFichiersQrt.h"
#include "catalogue/Sauver.h"
#include "catalogue/TriDeTable.h"
#include "extensions/FenetreDessous.h"
#include "extensions/frmCommentaires.h"
#include "shell/MesuresDeVue.h"
#include "ui_Form1.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int NombreDeRecents = 5;

} // namespace

void Form1::BrancherMenus()
{
    const auto brancher = [this](const QAction* commande, auto&& action) {
        connect(commande, &QAction::triggered, this, std::forward<decltype(action)>(action));
    };
    connect(m_ui->mFichier, &QMenu::aboutToShow, this, &Form1::AccorderMenus);
    brancher(m_ui->mEnregistrer, [this] { Sauvegarder(false); });
    brancher(m_ui->mEnregistrerSous, [this] { Sauvegarder(true); });
    brancher(m_ui->mFermer, [this] { Decharger(); });
    brancher(m_ui->mFermerTout, [] { ToutFermer(); });
    brancher(m_ui->mQuitter, [this] { Quitter(); });
    for (int i = 0; i < NombreDeRecents; ++i)
        brancher(findChild<QAction*>(u"mRecent_%1"_s.arg(i)), [this, i] { OuvrirRecent(i); });

    brancher(m_ui->mModifierCommentaires, [this] { mModifierCommentaires_Click(); });
    brancher(m_ui->mAfficherGrille, [this](bool visible) {
        m_table.SetGridLines(visible);
        RedrawAll();
    });
    brancher(m_ui->mAfficherImages, [this](bool visible) {
        EcrireOption(u"AffImg"_s, visible);
        RedrawAll(true);
    });
    brancher(m_ui->mGrandesIcones, [this] {
        if (BarresDuCadre* barres = BarresAutour())
            barres->mGrandesIcones_Click();
        RedrawAll();
    });
    brancher(m_ui->mActualiser, [this] { Actualiser(); });
    brancher(m_ui->mRedimentionAutomatique, [this] { AjusterColonnes(m_table, MesuresDeVue(ListView1(), *this)); });
    brancher(m_ui->mRedimAuto2, [this] { RedimensionnerColonnes(m_table, ListView1().UnitesDe(ListView1().width())); });
}

Cadre* Form1::CadreAutour() const
{
    return dynamic_cast<Cadre*>(window());
}

BarresDuCadre* Form1::BarresAutour() const
{
    return dynamic_cast<BarresDuCadre*>(window());
}

void Form1::mAfficherImages_Click()
{
    m_ui->mAfficherImages->trigger();
}

void Form1::mModifierCategorie_Click()
{
    m_ui->mModifierCategorie->trigger();
}

void Form1::mModifierCommentaires_Click()
{
    CommentairesDuDossier stock;
    const QString chemin = myqrt.TmpFolder + Commentaires::NomDuFichier();
    if (ModifierCommentaires(stock, chemin, myqrt.filename(), FenetreDessous()))
        myqrt.IlFautSauver = true;
}

void Form1::mRechercher_Click()
{
    m_ui->mRechercher->trigger();
}

/// One document alone is closed and saved by the plain commands.
void Form1::AccorderMenus()
{
    const Cadre* cadre = CadreAutour();
    m_ui->mFermerTout->setEnabled(cadre && cadre->Documents().size() > 1);
}

void Form1::MettreRecent(int index, const QString& chemin)
{
    auto* recent = findChild<QAction*>(u"mRecent_%1"_s.arg(index));
    recent->setVisible(!chemin.isEmpty());
    recent->setData(chemin);
    recent->setText(QString(chemin).replace(u'&', u"&&"_s));
}

void Form1::MontrerBarRecent(bool visible)
{
    m_ui->mBarRecent->setVisible(visible);
}

void Form1::OuvrirRecent(int index)
{
    Cadre* cadre = CadreAutour();
    if (!cadre)
        return;
    OuvrirFichier(*cadre, findChild<QAction*>(u"mRecent_%1"_s.arg(index))->data().toString(), TypeQrt2, true);
    MajMenuRecents(*this);
}

void Form1::Sauvegarder(bool sous)
{
    Enregistrer(myqrt, sous, true);
    // A document that was never saved keeps the name it goes by.
    if (!myqrt.filename().isEmpty())
        SetCaption(myqrt.filename());
    MajMenuRecents(*this);
    if (auto* cadre = dynamic_cast<MenuRecents*>(window()))
        MajMenuRecents(*cadre);
}

/// The whole program ends, when every document agrees.
void Form1::Quitter()
{
    window()->close();
}

void Form1::Actualiser()
{
    Retrier(m_table);
    if (const ListItem entree = m_table.SelectedItem())
        ListView1().RendreVisible(entree.Index());
    RedrawAll(true);
}
