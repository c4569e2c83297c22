// The comments of a category: one text to read and change. It is written when the dialog closes.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmCommentaires;
}

class frmCommentaires : public QDialog
{
    Q_OBJECT

public:
    explicit frmCommentaires(QWidget* parent = nullptr);
    ~frmCommentaires() override;

    /// Shows the comments of the file `chemin`, "Zelvane.txt" in a document's folder; without such a file, none.
    void LoadTexte(const QString& chemin);

    /// Writes the text, if it was changed, and returns true when it did. `remplacer` allows that a file is there
    /// already. A failure is told ("msg3").
    bool SaveTexte(const QString& chemin, bool remplacer);

    /// The user changed the text since it came on the screen.
    bool modifie = false;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QString Texte() const;

    std::unique_ptr<Ui::frmCommentaires> m_ui;
};

/// Lets the user read and change the comments of the file `chemin`, which belong to the document `filename`. True when
/// something was written: the document has changed then.
bool ModifierCommentaires(const QString& chemin, const QString& filename, QWidget* parent);
