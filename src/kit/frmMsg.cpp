#include "kit/frmMsg.h"

#include "base/AfficherMsg.h"
#include "extensions/langue/LangForm.h"
#include "kit/Icones.h"
#include "kit/MotsLongs.h"
#include "ui_frmMsg.h"

#include <QKeyEvent>
#include <QScreen>
#include <QStyle>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int LargeurMin = 200;      // room for a title above a text of one word
constexpr int LargeurTexte = 340;    // a line of some 55 letters reads well
constexpr int LargeurMot = 560;      // a line without blanks, a path say, may be longer
constexpr double PartDeLEcran = 0.6; // of the height that a text may take before it scrolls
constexpr int LargeurBouton = 92;
constexpr int CoteImage = 32;

/// A key that was pressed for the window below and is still held: the question came up under it, and nobody has read it
/// yet. What moves the focus or scrolls does no harm.
bool EstRestee(const QKeyEvent& touche)
{
    if (!touche.isAutoRepeat())
        return false;
    switch (touche.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return false;
    default:
        return true;
    }
}

} // namespace

frmMsg::frmMsg(const QString& texte, int genre, const QString& titre, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmMsg>())
{
    m_ui->setupUi(this);
    LangForm(*this);
    // An empty title bar would show the name of the executable.
    setWindowTitle(titre.isEmpty() ? u"Zelvane"_s : titre);
    m_ui->Label1->setText(CouperMotsLongs(texte, m_ui->Label1->fontMetrics(), LargeurMot));
    // What a screen reader says first.
    setAccessibleDescription(texte);

    m_ui->Image1->setPixmap(Icone(genre == MsgOk ? u"information"_s : u"question"_s).pixmap(CoteImage));

    ChoisirBoutons(genre);
    DonnerTouches();
    AjusterTaille(LargeurDuPlusLongMot(texte, m_ui->Label1->fontMetrics()));
    for (QPushButton* bouton : {m_ui->btYes, m_ui->btNo, m_ui->btCancel})
        bouton->installEventFilter(this);
    connect(m_ui->btYes, &QPushButton::clicked, this, [this] { Repondre(RetourYes); });
    connect(m_ui->btNo, &QPushButton::clicked, this, [this] { Repondre(RetourNo); });
    connect(m_ui->btCancel, &QPushButton::clicked, this, [this] { Repondre(RetourCancel); });
}

frmMsg::~frmMsg() = default;

void frmMsg::ChoisirBoutons(int genre)
{
    const bool deuxReponses = genre == MsgOk || genre == MsgOkAnnuler;
    RetourYes = deuxReponses ? RepOk : RepOui;
    RetourNo = RepNon;
    RetourCancel = RepAnnuler;
    m_ui->btNo->setVisible(!deuxReponses);
    m_ui->btCancel->setVisible(genre != MsgOk && genre != MsgOuiNon);
    for (QPushButton* bouton : {m_ui->btYes, m_ui->btNo, m_ui->btCancel})
        bouton->setMinimumWidth(LargeurBouton);
    m_ui->btYes->setFocus();
}

void frmMsg::ChoisirDefaut(int reponse)
{
    const std::pair<QPushButton*, int> boutons[] = {
        {m_ui->btYes, RetourYes}, {m_ui->btNo, RetourNo}, {m_ui->btCancel, RetourCancel}};
    for (const auto& [bouton, retour] : boutons) {
        if (retour != reponse || bouton->isHidden())
            continue;
        bouton->setDefault(true);
        bouton->setFocus();
    }
}

/// Alt and the first letter press a button whose caption marks no letter of its own: it is marked, so that it is seen,
/// and read out.
void frmMsg::DonnerTouches()
{
    for (QPushButton* bouton : {m_ui->btYes, m_ui->btNo, m_ui->btCancel}) {
        const QString titre = bouton->text();
        if (bouton->shortcut().isEmpty() && !titre.isEmpty() && titre.front().isLetter())
            bouton->setText(u'&' + titre);
    }
}

/// As wide as the text asks for, within bounds; as high too, and what is beyond the bound scrolls.
void frmMsg::AjusterTaille(int plusLongMot)
{
    const QFontMetrics mesures = m_ui->Label1->fontMetrics();
    int largeur = qMax(LargeurMin, qMin(plusLongMot + 1, LargeurMot));
    for (const QString& ligne : m_ui->Label1->text().split(u'\n')) {
        const int auPlus = ligne.contains(u' ') ? LargeurTexte : LargeurMot;
        largeur = qMax(largeur, qMin(mesures.horizontalAdvance(ligne) + 1, auPlus));
    }
    const int hauteur = qMax(m_ui->Label1->heightForWidth(largeur), CoteImage);
    const int hauteurMax = static_cast<int>(screen()->availableSize().height() * PartDeLEcran);
    const int ascenseur = hauteur > hauteurMax ? style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this) : 0;
    m_ui->Defilement->setMinimumSize(largeur + ascenseur, qMin(hauteur, hauteurMax));
    // Keys scroll too, once Tab has led there; while all is seen it would be a stop for nothing.
    m_ui->Defilement->setFocusPolicy(ascenseur > 0 ? Qt::StrongFocus : Qt::NoFocus);
    resize(layout()->totalMinimumSize());
}

bool frmMsg::eventFilter(QObject* objet, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && EstRestee(*static_cast<QKeyEvent*>(event)))
        return true;
    return QDialog::eventFilter(objet, event);
}

/// Before the letters with Alt are looked for: a button's goes on with a held key.
bool frmMsg::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && EstRestee(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QDialog::event(event);
}

void frmMsg::keyPressEvent(QKeyEvent* event)
{
    if (!EstRestee(*event))
        QDialog::keyPressEvent(event);
}

void frmMsg::Repondre(int reponse)
{
    Resultat = reponse;
    accept();
}
