// What tables and lists of entries have in common.
#pragma once

#include <functional>

class QTableView;

/// Makes a table of rows: one is selected as a whole, scrolled to by pixels and as high as any other; columns may have
/// any width. There are no numbers of rows, and no grid.
void FaireTableDeLignes(QTableView& table);
/// To be called once the table has its model. Its titles do not follow the selection from here on: they would look
/// through every selected row, for each title drawn, to find out whether it is selected.
void DetacherTitres(QTableView& table);
/// Calls `clic` with the column (from 1) for each click on a title while titles are clickable, also for the second of
/// two quick ones: who clicks twice turns the order twice.
void EcouterTitres(QTableView& table, const std::function<void(int)>& clic);
