#include "vue/VueTable.h"

#include "vue/DelegueEntrees.h"
#include "vue/ModeleTable.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr double EncreDeLInvitation = 0.75; // quieter than an entry, and still easy to read on its ground
constexpr int BordDeLInvitation = 24;

QColor Melange(const QColor& encre, const QColor& fond, double part)
{
    const auto ton = [part](double a, double b) { return float(a * part + b * (1 - part)); };
    return QColor::fromRgbF(ton(encre.redF(), fond.redF()), ton(encre.greenF(), fond.greenF()),
                            ton(encre.blueF(), fond.blueF()));
}

} // namespace

VueTable::VueTable(QWidget* parent) : VueDesLignes(parent)
{
    horizontalHeader()->setSectionsClickable(false);
    PermettreDEmporter();
    setAcceptDrops(true);
}

bool VueTable::EstEntiere(int ligne, int colonne) const
{
    const QString texte = Modele().Table().ListItems(ligne).Valeur(colonne);
    return DelegueEntrees::TientEn(texte, colonne, columnWidth(colonne - 1), fontMetrics());
}

void VueTable::TableChangee(const ChangementsTable& changements)
{
    VueDesLignes::TableChangee(changements);
    if (m_vide != EstVide())
        viewport()->update();
    emit TableRafraichie();
}

bool VueTable::EstVide() const
{
    return MontreTable() && Modele().Table().ListItems.Count() == 0;
}

void VueTable::paintEvent(QPaintEvent* event)
{
    VueDesLignes::paintEvent(event);
    m_vide = EstVide();
    const QString invitation = m_vide && Invitation ? Invitation() : QString();
    if (invitation.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(Melange(palette().color(QPalette::Text), palette().color(QPalette::Base), EncreDeLInvitation));
    const QMargins bords(BordDeLInvitation, 0, BordDeLInvitation, 0);
    painter.drawText(viewport()->rect().marginsRemoved(bords), Qt::AlignCenter | Qt::TextWordWrap, invitation);
}

/// The base moves what is drawn along with the columns, and the text in the middle stays there.
void VueTable::scrollContentsBy(int dx, int dy)
{
    VueDesLignes::scrollContentsBy(dx, dy);
    if (m_vide)
        viewport()->update();
}

/// The keys of commands go to the window, and nowhere else.
bool VueTable::TouchePourLaFenetre(const QKeyEvent& event)
{
    const bool pave = event.modifiers() & Qt::KeypadModifier;
    const Qt::KeyboardModifiers avec = event.modifiers() & ~Qt::KeypadModifier;
    const bool entree = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const auto dire = [this](Touche touche, bool siEntrees) {
        if (!siEntrees || Modele().Table().ListItems.Count() > 0)
            emit ToucheDeCommande(touche);
        return true;
    };
    if (entree && avec == Qt::NoModifier)
        return dire(Touche::Editer, true);
    if (entree && avec == Qt::ShiftModifier)
        return dire(Touche::Voir, true);
    if (event.key() == Qt::Key_Delete)
        return dire(Touche::Supprimer, false);
    if (event.key() == Qt::Key_Plus && pave && avec == Qt::NoModifier)
        return dire(Touche::Ajouter, false);
    return false;
}

void VueTable::keyReleaseEvent(QKeyEvent* event)
{
    VueDesLignes::keyReleaseEvent(event);
    emit ToucheRelachee();
}

void VueTable::keyPressEvent(QKeyEvent* event)
{
    Modele().Rafraichir();
    if (!TouchePourLaFenetre(*event))
        VueDesLignes::keyPressEvent(event);
}

void VueTable::mouseReleaseEvent(QMouseEvent* event)
{
    VueDesLignes::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton)
        emit ClicDroit(event->globalPosition().toPoint());
    else if (event->button() == Qt::LeftButton && LigneSous(event->position().toPoint()) > 0)
        emit EntreeCliquee();
}

void VueTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    VueDesLignes::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && LigneSous(event->position().toPoint()) > 0)
        emit EntreeDoubleCliquee();
}

// ---- what is dragged here

bool VueTable::PorteUnTexte(const QDropEvent& event)
{
    const QMimeData& donnees = *event.mimeData();
    return donnees.hasFormat(QStringLiteral("text/plain")) && (event.possibleActions() & Qt::CopyAction) &&
           std::ranges::none_of(donnees.urls(), &QUrl::isLocalFile) && !QApplication::activeModalWidget();
}

/// What is not for the table may be for the frame around it, which opens files.
bool VueTable::Accueillir(QDropEvent& event) const
{
    const bool prend = Tag != SourceDrag() && PorteUnTexte(event);
    event.setDropAction(prend ? Qt::CopyAction : event.dropAction());
    event.setAccepted(prend);
    return prend;
}

void VueTable::dragEnterEvent(QDragEnterEvent* event)
{
    Accueillir(*event);
}

void VueTable::dragMoveEvent(QDragMoveEvent* event)
{
    Accueillir(*event);
}

void VueTable::dropEvent(QDropEvent* event)
{
    if (Accueillir(*event))
        emit TexteDepose(event->mimeData()->text());
}
