#include "dialogs/AddElementDialog.h"

AddElementDialog::AddElementDialog(DashboardDocument*, QWidget* parent) : QDialog(parent) {}
