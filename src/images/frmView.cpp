#include "images/frmView.h"

#include "catalogue/table/MyLV.h"
#include "extensions/langue/LangForm.h"
#include "images/FicheDEntree.h"
#include "images/FichierImage.h"
#include "kit/Icones.h"
#include "kit/MotsLongs.h"
#include "ui_frmView.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QShowEvent>
#include <QSplitter>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int LignesDeTitre = 5; // a title that fills the window is no title: what is beyond scrolls
constexpr int LargeurMot = 280;  // pixels; a longer word is broken, so that a narrow window shows it whole too
constexpr double MargeTexte = 8; // letters that touch the frame are tiring to read

} // namespace

frmView::frmView(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmView>())
{
    m_ui->setupUi(this);
    m_ui->Text1->document()->setDocumentMargin(MargeTexte);
    m_ui->Partage->setStretchFactor(0, 1);
    m_ui->Partage->setStretchFactor(1, 1);
    m_ui->Partage->setSizes({width(), width()}); // half each
    m_ui->btFirst->setIcon(Icone(u"first"_s));
    m_ui->btPrec->setIcon(Icone(u"left"_s));
    m_ui->btNext->setIcon(Icone(u"right"_s));
    m_ui->btLast->setIcon(Icone(u"last"_s));
    m_ui->btAnnuler->setIcon(Icone(u"annuler"_s));

    connect(m_ui->btFirst, &QPushButton::clicked, this, [this] { AllerA(1); });
    connect(m_ui->btPrec, &QPushButton::clicked, this, [this] { AllerA(Numero - 1); });
    connect(m_ui->btNext, &QPushButton::clicked, this, [this] { AllerA(Numero + 1); });
    connect(m_ui->btLast, &QPushButton::clicked, this, [this] { AllerA(Nombre()); });
    connect(m_ui->btAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    for (QPushButton* bouton : {m_ui->btFirst, m_ui->btPrec, m_ui->btNext, m_ui->btLast, m_ui->btAnnuler})
        bouton->installEventFilter(this);
    m_ui->Img->installEventFilter(this);
    LangForm(*this);
    m_ui->btAnnuler->setFocus();
}

frmView::~frmView() = default;

void frmView::Redraw()
{
    setWindowTitle(u"(%1 / %2)"_s.arg(Numero).arg(Nombre()));
    const ListItemLu entree = MyLV ? MyLV->ListItems(Numero) : ListItemLu();
    MontrerTitre(entree ? entree.Text() : QString());
    MontrerFiche(MyLV ? FicheDEntree(*MyLV, Numero) : QString());
    m_ui->Img->ChargerOuVider(entree ? FichierImage(Dossier, entree.Tag()) : QString());
    PermettreBoutons();
}

/// What the reader scrolled to stays, as in MontrerFiche.
void frmView::MontrerTitre(const QString& titre)
{
    if (titre == m_titre)
        return;
    m_titre = titre;
    m_ui->Label1->setText(CouperMotsLongs(titre, m_ui->Label1->fontMetrics(), LargeurMot));
    m_ui->Defilement->verticalScrollBar()->setValue(0);
    AjusterTitre();
}

void frmView::AjusterTitre()
{
    const int hauteur = m_ui->Label1->heightForWidth(m_ui->Defilement->width());
    const int ligne = m_ui->Label1->fontMetrics().lineSpacing();
    const int auPlus = LignesDeTitre * ligne;
    m_ui->Defilement->setFixedHeight(qBound(ligne, hauteur, auPlus));
    // While all is seen the title would be a stop of Tab for nothing.
    m_ui->Defilement->setFocusPolicy(hauteur > auPlus ? Qt::StrongFocus : Qt::NoFocus);
    if (hauteur <= auPlus && m_ui->Defilement->hasFocus())
        m_ui->btAnnuler->setFocus();
}

void frmView::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    AjusterTitre();
}

/// The form may only have come back to the front: what the reader scrolled to or marked stays then.
void frmView::MontrerFiche(const QString& fiche)
{
    if (fiche == m_fiche)
        return;
    m_fiche = fiche;
    m_ui->Text1->setPlainText(fiche);
}

void frmView::PermettreBoutons()
{
    const QWidget* avant = focusWidget();
    m_ui->btFirst->setEnabled(Numero > 1);
    m_ui->btPrec->setEnabled(Numero > 1);
    m_ui->btLast->setEnabled(Numero < Nombre());
    m_ui->btNext->setEnabled(Numero < Nombre());
    // A button that is disabled gives the focus to its neighbour: Enter would walk back.
    if (avant && !avant->isEnabled())
        m_ui->btAnnuler->setFocus();
}

int frmView::Nombre() const
{
    return MyLV ? MyLV->ListItems.Count() : 0;
}

/// At either end the entry on show stays.
void frmView::AllerA(int numero)
{
    if (numero >= 1 && numero <= Nombre())
        Numero = numero;
    Redraw();
}

bool frmView::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate)
        Redraw();
    return QDialog::event(event);
}

void frmView::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    // A style sheet keeps the colours of the theme that it was set in.
    if (event->type() == QEvent::PaletteChange)
        m_ui->Degrade->setStyleSheet(m_ui->Degrade->styleSheet());
}

void frmView::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Redraw();
}

/// The wheel walks over the picture; over the text it scrolls. Keys walk while a button has the focus, as btAnnuler has
/// at first.
bool frmView::eventFilter(QObject* objet, QEvent* event)
{
    if (objet == m_ui->Img && event->type() == QEvent::Wheel) {
        Rouler(static_cast<QWheelEvent*>(event)->angleDelta().y());
        return true;
    }
    if (objet != m_ui->Img && event->type() == QEvent::KeyPress && AllerParTouche(*static_cast<QKeyEvent*>(event)))
        return true;
    return QDialog::eventFilter(objet, event);
}

void frmView::Rouler(int huitiemes)
{
    constexpr int cran = QWheelEvent::DefaultDeltasPerStep;
    m_roulement += huitiemes;
    const int crans = m_roulement / cran;
    m_roulement -= crans * cran;
    if (crans != 0)
        AllerA(qBound(1, Numero - crans, Nombre()));
}

bool frmView::AllerParTouche(const QKeyEvent& touche)
{
    const bool seule = (touche.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!seule && touche.modifiers() != Qt::ControlModifier)
        return false;
    const QList<int> avant = seule ? QList<int>{Qt::Key_Left, Qt::Key_Up, Qt::Key_PageUp} : QList<int>{Qt::Key_B};
    const QList<int> apres = seule ? QList<int>{Qt::Key_Right, Qt::Key_Down, Qt::Key_PageDown} : QList<int>{Qt::Key_N};
    if (avant.contains(touche.key()))
        AllerA(Numero - 1);
    else if (apres.contains(touche.key()))
        AllerA(Numero + 1);
    else if (seule && touche.key() == Qt::Key_Home)
        AllerA(1);
    else if (seule && touche.key() == Qt::Key_End)
        AllerA(Nombre());
    else
        return false;
    return true;
}
