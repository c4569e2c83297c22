#include "extensions/dialogues/frmCommentaires.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"
#include "catalogue/documents/Commentaires.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "ui_frmCommentaires.h"

#include <QFileInfo>
#include <QShowEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr double MargeTexte = 8; // letters that touch the frame are tiring to read

QString DossierDe(const QString& chemin)
{
    return QFileInfo(chemin).path() + u'/';
}

} // namespace

frmCommentaires::frmCommentaires(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmCommentaires>())
{
    m_ui->setupUi(this);
    m_ui->Text1->document()->setDocumentMargin(MargeTexte);
    m_ui->Check1->setChecked(LireOption(Options::commentAtStartup));

    connect(m_ui->Text1, &QPlainTextEdit::textChanged, this, [this] { modifie = true; });
    connect(m_ui->Check1, &QCheckBox::clicked, this,
            [](bool cochee) { EcrireOption(Options::commentAtStartup, cochee); });
    SuivreOption(Options::commentAtStartup, *this,
                 [this] { m_ui->Check1->setChecked(LireOption(Options::commentAtStartup)); });
    connect(m_ui->btFermer, &QPushButton::clicked, this, &QDialog::accept);
    LangForm(*this);
}

frmCommentaires::~frmCommentaires() = default;

void frmCommentaires::LoadTexte(const QString& chemin)
{
    m_ui->Text1->setPlainText(Commentaires::Lire(DossierDe(chemin)).value_or(QString()));
    modifie = false;
}

bool frmCommentaires::SaveTexte(const QString& chemin, bool remplacer)
{
    if (!modifie)
        return false;
    const bool permis = remplacer || !Commentaires::Lire(DossierDe(chemin));
    const bool ecrit = permis && Commentaires::Ecrire(DossierDe(chemin), Texte());
    if (!ecrit)
        AfficherMsg(LangMsg(u"msg3"_s, u"Erreur lors de l'enregistrement des commentaires"_s), MsgOk, QString());
    return ecrit;
}

/// Coming on the screen is what counts as activation. Coming back from another program does not: the user may have
/// fetched a text there, and what was typed before would be lost.
void frmCommentaires::showEvent(QShowEvent* event)
{
    if (!event->spontaneous())
        modifie = false;
    QDialog::showEvent(event);
}

/// The text as it was typed: toPlainText makes plain blanks of those that do not break.
QString frmCommentaires::Texte() const
{
    return m_ui->Text1->document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
}

bool ModifierCommentaires(const QString& chemin, const QString& filename, QWidget* parent)
{
    frmCommentaires form(parent);
    form.setWindowTitle(LangMsg(u"msg77"_s, u"Commentaires"_s).texte + u" ("_s + filename + u')');
    form.LoadTexte(chemin);
    form.exec();
    return form.SaveTexte(chemin, true);
}
