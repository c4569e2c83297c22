#include "entries/frmPreEnregistre.h"

#include "base/AfficherMsg.h"
#include "base/SurUneLigne.h"
#include "entries/FichierDEchange.h"
#include "entries/SaisieDEntree.h"
#include "entries/frmDragAndDrop.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "output/frmExport.h"
#include "platform/Plateforme.h"
#include "ui_frmPreEnregistre.h"

#include <QAction>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStringListModel>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype SignesMontres = 1000;   // of one text in the list: more than any screen is wide
constexpr qsizetype SignesDemandes = 10000; // of all texts in the question: what can still be looked through

} // namespace

/// The texts of one column. Long ones are cut where they are shown: what comes from the clipboard has any length.
class ModeleDeTextes : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    QVariant data(const QModelIndex& index, int role) const override
    {
        const QVariant valeur = QStringListModel::data(index, role);
        if (role != Qt::DisplayRole || valeur.toString().size() <= SignesMontres)
            return valeur;
        return QString(valeur.toString().first(SignesMontres) + u'…');
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return QStringListModel::flags(index) & ~(Qt::ItemIsEditable | Qt::ItemIsDropEnabled | Qt::ItemIsDragEnabled);
    }
};

frmPreEnregistre::frmPreEnregistre(ListesDeColonnes colonnes, QWidget* parent)
    : QDialog(parent), m_colonnes(std::move(colonnes)), m_ui(std::make_unique<Ui::frmPreEnregistre>()),
      m_modele(new ModeleDeTextes(this))
{
    m_ui->setupUi(this);
    m_ui->List1->setModel(m_modele);
    RemplirOnglets();
    PreparerOutils();
    connect(m_ui->TabStrip1, &QTabBar::currentChanged, this, &frmPreEnregistre::RedrawList);
    connect(m_ui->btCopy, &QPushButton::clicked, this, &frmPreEnregistre::Copier);
    connect(m_ui->btPaste, &QPushButton::clicked, this, &frmPreEnregistre::Coller);
    connect(m_ui->btOK, &QPushButton::clicked, this, [this] {
        Valide = true;
        accept();
    });
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    for (QWidget* controle : {static_cast<QWidget*>(m_ui->List1), static_cast<QWidget*>(m_ui->TabStrip1)})
        controle->installEventFilter(this);
    LangForm(*this);
    // Pictures alone tell a screen reader nothing.
    for (QPushButton* bouton : {m_ui->btOK, m_ui->btAnnuler})
        bouton->setAccessibleName(bouton->toolTip());
}

frmPreEnregistre::~frmPreEnregistre() = default;

void frmPreEnregistre::RemplirOnglets()
{
    for (const TextesDeColonne& colonne : m_colonnes)
        m_ui->TabStrip1->addTab(SurUneLigne(colonne.titre).replace(u'&', u"&&"_s));
}

void frmPreEnregistre::PreparerOutils()
{
    m_ui->add->setIcon(Icone(u"addentree"_s));
    m_ui->remove->setIcon(Icone(u"delentree"_s));
    m_ui->btOK->setIcon(Icone(u"ok"_s));
    m_ui->btAnnuler->setIcon(Icone(u"del"_s));
    connect(m_ui->add, &QAction::triggered, this, &frmPreEnregistre::Ajouter);
    connect(m_ui->remove, &QAction::triggered, this, &frmPreEnregistre::Supprimer);
    for (QAction* outil : {m_ui->add, m_ui->remove})
        m_ui->Toolbar1->widgetForAction(outil)->setFocusPolicy(Qt::StrongFocus);
}

void frmPreEnregistre::showEvent(QShowEvent* event)
{
    RedrawList();
    QDialog::showEvent(event);
}

bool frmPreEnregistre::eventFilter(QObject* objet, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(objet, event);
    const auto& touche = static_cast<const QKeyEvent&>(*event);
    if (touche.key() == Qt::Key_Plus && touche.modifiers().testFlag(Qt::KeypadModifier)) {
        Ajouter();
        return true;
    }
    if (objet == m_ui->List1 && touche.key() == Qt::Key_Delete) {
        Supprimer();
        return true;
    }
    return QDialog::eventFilter(objet, event);
}

QString* frmPreEnregistre::ListeCourante()
{
    const int onglet = m_ui->TabStrip1->currentIndex();
    return onglet < 0 ? nullptr : &m_colonnes[static_cast<size_t>(onglet)].liste;
}

std::vector<int> frmPreEnregistre::LignesChoisies() const
{
    std::vector<int> lignes;
    const QModelIndexList choix = m_ui->List1->selectionModel()->selectedRows();
    lignes.reserve(static_cast<size_t>(choix.size()));
    for (const QModelIndex& index : choix)
        lignes.push_back(index.row());
    std::ranges::sort(lignes);
    return lignes;
}

void frmPreEnregistre::RedrawList()
{
    const QString* liste = ListeCourante();
    const QStringList textes = liste ? TextesDe(*liste) : QStringList();
    m_modele->setStringList(textes.isEmpty() ? QStringList(u"...Aucune Info..."_s) : textes);
    m_ui->List1->setEnabled(!textes.isEmpty());
    if (!textes.isEmpty()) // for the keyboard: the focus has a place, and nothing is selected
        m_ui->List1->selectionModel()->setCurrentIndex(m_modele->index(0), QItemSelectionModel::NoUpdate);
}

void frmPreEnregistre::Ajouter()
{
    QString* liste = ListeCourante();
    if (!liste)
        return;
    const QString texte = SurUneLigne(SaisirTexte(u"Texte à ajouter à la preselection"_s, QString()));
    if (texte.isEmpty())
        return;
    *liste = AvecTexte(*liste, texte);
    RedrawList();
    m_ui->List1->scrollToBottom();
}

void frmPreEnregistre::Supprimer()
{
    QString* liste = ListeCourante();
    const std::vector<int> lignes = LignesChoisies();
    if (!liste || lignes.empty()) {
        AfficherMsg(LangMsg(u"msg70"_s, u"Selectionnez un texte à supprimer"_s), MsgOk, QString());
        return;
    }
    Message question = LangMsg(u"msg69"_s, u"Voulez-vous supprimer le texte suivant de la liste?"_s);
    question.texte += u"\r\n"_s + EnMots(lignes);
    if (AfficherMsg(question, MsgOuiNonAnnuler, QString()) != RepOui)
        return;
    const QStringList restants = SansTextes(m_modele->stringList(), lignes);
    *liste = restants.join(u'|');
    // The list stays as it is now, without the words for an empty one. It is meant.
    m_modele->setStringList(restants);
    const int suivante = std::min(lignes.front(), m_modele->rowCount() - 1);
    m_ui->List1->selectionModel()->setCurrentIndex(m_modele->index(suivante), QItemSelectionModel::NoUpdate);
}

QString frmPreEnregistre::EnMots(const std::vector<int>& lignes) const
{
    QString mots;
    for (const int ligne : lignes) {
        if (mots.size() > SignesDemandes)
            return mots + u'…';
        mots += u'"' + m_modele->data(m_modele->index(ligne), Qt::DisplayRole).toString() + u"\", "_s;
    }
    return mots;
}

// ---- the clipboard

void frmPreEnregistre::Copier()
{
    if (SontVides(m_colonnes)) {
        AfficherMsg(LangMsg(u"msg97"_s, u"Rien n'a ete copié !"_s), MsgOk, QString());
        return;
    }
    plateforme().pressePapiers->Vider();
    FichierDEchange fichier;
    fichier.Ecrire(EntetePreenregistres().toUtf8());
    frmExport choix(this);
    choix.ServirDeChoix(LangMsg(u"msg102"_s, u"Copier Texte Préenregistré"_s).texte,
                        LangMsg(u"msg103"_s, u"Sélectionnez quels textes vous voulez copier"_s).texte,
                        LangMsg(u"msg86"_s, u"Valider"_s).texte);
    for (const TextesDeColonne& colonne : m_colonnes)
        choix.AjouterColonne(colonne.titre, true);
    choix.exec();
    // Given up, the clipboard stays empty and the file stays, with its first line. It is meant.
    if (choix.Valide) {
        const std::vector<bool> cochees = choix.Cochees();
        for (size_t i = 0; i < m_colonnes.size(); ++i) {
            if (cochees[i])
                fichier.Ecrire(LignePreenregistree(m_colonnes[i]).toUtf8());
        }
        PoserSurPressePapiers(fichier);
    }
    RedrawList();
}

void frmPreEnregistre::Coller()
{
    const std::optional<QString> texte = plateforme().pressePapiers->Texte();
    const std::optional<ListesDeColonnes> sources = texte ? LirePreenregistres(*texte) : std::nullopt;
    if (!sources)
        return;
    frmDragAndDrop form(Correspondre(TitresDe(*sources), TitresDe(m_colonnes)), this);
    form.setWindowTitle(LangMsg(u"msg78"_s, u"Coller"_s).texte);
    form.exec();
    if (form.Valide)
        CollerPreenregistres(m_colonnes, *sources, form.Rangs());
    RedrawList();
}
