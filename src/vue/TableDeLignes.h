// What tables and lists of entries have in common.
#pragma once

#include <functional>
#include <vector>

class QHeaderView;
class QPaintEvent;
class QPainter;
class QTableView;

/// Makes a table of rows: one is selected as a whole, scrolled to by pixels and as high as any other; columns may have
/// any width. There are no numbers of rows, and no grid.
void FaireTableDeLignes(QTableView& table);
/// To be called once the table has its model. Its titles do not follow the selection from here on: they would look
/// through every selected row, for each title drawn, to find out whether it is selected.
void DetacherTitres(QTableView& table);
/// Gives the first `nombre` columns the widths in pixels that `pixels` tells, column by column from 1. Where there are
/// more of them than a view has room for, wide ones are shown less wide.
void MettreLargeurs(QTableView& table, int nombre, const std::function<int(int)>& pixels);
/// Columns side by side (from 1) that have a width, and the pixels of the viewport that they take.
struct PlageDeColonnes
{
    int premiere;
    int derniere;
    int gauche;
    int droite;
};
/// Those that are seen between two places of the viewport, from left to right. Qt draws also what lies between them:
/// each row of each column without a width, which there may be any number of.
std::vector<PlageDeColonnes> ColonnesVues(const QHeaderView& titres, int gauche, int droite);
/// What such columns have of a picture that is to be painted.
QPaintEvent PartieDe(const QPaintEvent& event, const PlageDeColonnes& plage);
/// Tells which row (from 1) of the table has the focus: by a line around all of it, seen on a selected row too. Styles
/// lay a colour over it, and a row looks selected then that is not.
void DessinerFocus(QPainter& painter, const QTableView& table, int ligne, bool choisie);
/// Calls `clic` with the column (from 1) for each click on a title while titles are clickable, also for the second of
/// two quick ones: who clicks twice turns the order twice.
void EcouterTitres(QTableView& table, const std::function<void(int)>& clic);
