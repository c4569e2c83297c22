#include "shell/MDIForm1.h"

#include "base/Const_Vrac.h"
#include "base/Icones.h"
#include "base/Options.h"
#include "extensions/modLang.h"
#include "shell/Form1.h"
#include "ui_MDIForm1.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

/// Values of the setting SizeForm1.
enum EtatFenetre { Normale = 0, Reduite = 1, Agrandie = 2 };

constexpr int Cascade = 6; // windows, each a step to the right and down, before the first place comes again
constexpr int PasDeCascade = 28;
constexpr double PartDuCadre = 0.9; // of the frame's room, at most, for a window that is not maximised
constexpr double PartDeLEcran = 0.98;

void MontrerDansSonEtat(QMdiSubWindow& fenetre)
{
    const QVariant etat = LireOption(u"SizeForm1"_s);
    if (OptionEgale(etat, Agrandie))
        fenetre.showMaximized();
    else if (OptionEgale(etat, Reduite))
        fenetre.showMinimized();
    else
        fenetre.showNormal();
}

FenetreDocument* DocumentDe(const QMdiSubWindow* cadre)
{
    return cadre ? qobject_cast<Form1*>(cadre->widget()) : nullptr;
}

} // namespace

MDIForm1::MDIForm1(QWidget* parent) : QMainWindow(parent), m_ui(std::make_unique<Ui::MDIForm1>())
{
    m_ui->setupUi(this);
    setWindowIcon(Icone(u"zelvane"_s));
    ColorierFond();
    InstallerFenetres(this);
    InitialiserTempFolder();
    ChargerLangue(LireOption(u"QRTLangue"_s).toString());
    // A small screen gets a frame that fits it.
    resize(size().boundedTo(screen()->availableSize() * PartDeLEcran));
}

MDIForm1::~MDIForm1()
{
    InstallerFenetres(nullptr);
}

std::vector<FenetreDocument*> MDIForm1::Documents() const
{
    std::vector<FenetreDocument*> fenetres;
    for (const QMdiSubWindow* cadre : m_ui->Fenetres->subWindowList(QMdiArea::CreationOrder)) {
        if (FenetreDocument* document = DocumentDe(cadre))
            fenetres.push_back(document);
    }
    return fenetres;
}

FenetreDocument* MDIForm1::FenetreActive() const
{
    return DocumentDe(m_ui->Fenetres->currentSubWindow());
}

FenetreDocument& MDIForm1::NouvelleFenetre()
{
    auto* document = new Form1;
    const QSize normale = document->size().boundedTo(m_ui->Fenetres->size() * PartDuCadre);
    const int rang = static_cast<int>(Documents().size()) % Cascade;
    QMdiSubWindow* cadre = m_ui->Fenetres->addSubWindow(document);
    cadre->setGeometry(QRect(QPoint(rang, rang) * PasDeCascade, normale));
    cadre->setAttribute(Qt::WA_DeleteOnClose);
    cadre->setWindowIcon(windowIcon());
    MontrerDansSonEtat(*cadre);
    document->myqrt.Ouvrir->Montrer(true);
    return *document;
}

void MDIForm1::AmenerDevant(FenetreDocument& fenetre)
{
    if (QMdiSubWindow* cadre = CadreDe(fenetre)) {
        if (cadre->isMinimized())
            cadre->showNormal();
        m_ui->Fenetres->setActiveSubWindow(cadre);
    }
}

QMdiSubWindow* MDIForm1::CadreDe(const FenetreDocument& fenetre) const
{
    const auto cadres = m_ui->Fenetres->subWindowList();
    const auto trouve = std::ranges::find_if(cadres, [&](const auto* cadre) { return DocumentDe(cadre) == &fenetre; });
    return trouve == cadres.end() ? nullptr : *trouve;
}

/// The empty frame: a shade off the windows' own colour, in light and dark themes alike.
void MDIForm1::ColorierFond()
{
    const QColor fond = palette().color(QPalette::Window);
    m_ui->Fenetres->setBackground(fond.lightnessF() > 0.5 ? fond.darker(108) : fond.darker(125));
}

void MDIForm1::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ColorierFond();
}

void MDIForm1::closeEvent(QCloseEvent* event)
{
    m_ui->Fenetres->closeAllSubWindows();
    event->setAccepted(m_ui->Fenetres->subWindowList().isEmpty());
}
