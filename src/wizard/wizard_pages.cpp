#include "wizard/wizard_pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "wizard/input_page_view.h"
#include "wizard/model/control_names.h"
#include "wizard/model_picture_view.h"
#include "wizard/notice_label.h"
#include "wizard/output_page_view.h"
#include "wizard/pictures.h"

namespace wizard {

using namespace controls;  // the control names

namespace {

constexpr int kPictureWidth = 150;

template <typename Widget>
Widget* Named(const char* name) {
  auto* widget = new Widget;
  widget->setObjectName(name);
  return widget;
}

QLabel* Text(const char* name) {
  auto* label = Named<QLabel>(name);
  label->setWordWrap(true);
  return label;
}

QLabel* Heading(const char* name) {
  auto* label = Text(name);
  QFont font = label->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.3);
  label->setFont(font);
  return label;
}

// The line under a text field that tells what the field cannot take: "<field>Notice".
QLabel* FieldNotice(const char* field) { return NewNoticeLabel(QString(field) + "Notice"); }

// A text field with its browse button beside it, and its notice line below.
void FieldRow(QVBoxLayout& content, const char* field, const char* button) {
  auto* row = new QHBoxLayout;
  row->addWidget(Named<QLineEdit>(field), 1);
  auto* browse = Named<QPushButton>(button);
  browse->setText("...");
  browse->setFixedWidth(36);
  row->addWidget(browse);
  content.addLayout(row);
  content.addWidget(FieldNotice(field));
}

void BuildIntroduction(QVBoxLayout& content) {
  content.addWidget(Text(lblIntro[0]));
  content.addWidget(Text(lblIntro[1]));
  content.addWidget(Text(lblIntro[2]));
  content.addWidget(Text(lblIntro[3]));
  content.addSpacing(12);
  content.addWidget(Text(lblIntro[4]));
}

void BuildSaving(QVBoxLayout& content) {
  content.addWidget(Text(lblSaving_File));
  FieldRow(content, edFile, btnFile);
}

void BuildProject(QVBoxLayout& content) {
  content.addWidget(Text(lblGeneral_Project));
  FieldRow(content, edLocation, btnLocation);
  content.addSpacing(8);
  content.addWidget(Text(lblGeneral_Author));
  content.addWidget(Named<QLineEdit>(edAuthor));
  content.addWidget(FieldNotice(edAuthor));
  content.addSpacing(8);
  content.addWidget(Named<QCheckBox>(chkAsync));
}

void BuildProblem(QVBoxLayout& content) {
  auto* grid = new QGridLayout;
  const char* rows[][2] = {{lblProblem_Type, cmbType},
                           {lblProblem_Class, cmbClass},
                           {lblProblem_Coord, cmbCoord},
                           {lblProblem_Units, cmbUnit}};
  int row = 0;
  for (const auto& [label, combo] : rows) {
    grid->addWidget(Named<QLabel>(label), row, 0);
    grid->addWidget(Named<QComboBox>(combo), row, 1);
    ++row;
  }
  grid->setColumnStretch(1, 2);
  grid->setColumnStretch(2, 1);  // the lists need no more than two thirds of the width
  content.addLayout(grid);
}

// One basic file: its label, field and browse button, and its two options side by side.
void BasicFile(QVBoxLayout& content, const char* label, const char* field, const char* button,
               const char* code, const char* link) {
  content.addWidget(Text(label));
  FieldRow(content, field, button);
  auto* options = new QHBoxLayout;
  for (const char* name : {code, link}) {
    auto* option = Named<QRadioButton>(name);
    option->setAutoExclusive(false);  // the form decides which one is selected
    options->addWidget(option);
  }
  options->addStretch();
  content.addLayout(options);
}

void BuildBasicFiles(QVBoxLayout& content) {
  BasicFile(content, lblData_ModelFile, edModel, btnModel, optModelCode, optModelLink);
  BasicFile(content, lblData_DataFile, edData, btnData, optDataCode, optDataLink);
  content.addWidget(Text(lblData_Sketch));
  FieldRow(content, edSketch, btnSketch);
  auto* sketch = new QHBoxLayout;
  sketch->addStretch();
  sketch->addWidget(Named<QPushButton>(btnCreateSketch));
  content.addLayout(sketch);
  content.addWidget(new ModelPictureView, 1);
}

void BuildInputs(QVBoxLayout& content) {
  content.addWidget(Text(lblInput_List));
  content.addWidget(new InputPageView, 1);
}

void BuildOutputs(QVBoxLayout& content) { content.addWidget(new OutputPageView, 1); }

void BuildFinish(QVBoxLayout& content) {
  auto* row = new QHBoxLayout;
  auto* icon = Named<QLabel>("imgResult");
  icon->setFixedSize(40, 40);
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  texts->addWidget(Text("lblFin1"));
  texts->addSpacing(8);
  texts->addWidget(Text("lblFin2"));
  row->addLayout(texts, 1);
  content.addLayout(row);
}

struct PageLayout {
  const char* heading;
  const char* explanation;  // nullptr: the page has none
  void (*build)(QVBoxLayout&);
};

constexpr PageLayout kPages[] = {
    {lblIntro_Caption, nullptr, BuildIntroduction},
    {lblSaving_Caption, lblSaving_Caption2, BuildSaving},
    {lblGeneral_Caption, lblGeneral_Caption2, BuildProject},
    {lblProblem_Caption, lblProblem_Caption2, BuildProblem},
    {lblData_Caption, lblData_Caption2, BuildBasicFiles},
    {lblInput_Caption, lblInput_Caption2, BuildInputs},
    {lblOutput_Caption, lblOutput_Caption2, BuildOutputs},
    {lblFin_Caption, nullptr, BuildFinish},
};

// The field each label names.
constexpr std::pair<const char*, const char*> kLabelFields[] = {
    {lblSaving_File, edFile},       {lblGeneral_Project, edLocation},
    {lblGeneral_Author, edAuthor},  {lblProblem_Type, cmbType},
    {lblProblem_Class, cmbClass},   {lblProblem_Coord, cmbCoord},
    {lblProblem_Units, cmbUnit},    {lblData_ModelFile, edModel},
    {lblData_DataFile, edData},     {lblData_Sketch, edSketch},
    {lblInput_List, lvInput},       {lblOutput_List1, lvOutput},
    {lblOutput_List2, lvStandard},
};

// Pages whose list or model picture takes the spare height; the others keep their
// controls at the top.
bool Stretches(int page) { return page == 4 || page == 5 || page == 6; }

}  // namespace

PictureStrip::PictureStrip(int page) : page_(page) {
  setObjectName(QString("imgStep(%1)").arg(page));
  setFixedWidth(kPictureWidth);
}

void PictureStrip::ShowFinish(FinishPicture finish) {
  if (finish == finish_) return;
  finish_ = finish;
  update();
}

void PictureStrip::paintEvent(QPaintEvent*) {
  QPainter(this).drawPixmap(0, 0, PagePicture(page_, size(), finish_));
}

void PairLabelsWithFields(QWidget& window) {
  for (const auto& [label, field] : kLabelFields)
    window.findChild<QLabel*>(label)->setBuddy(window.findChild<QWidget*>(field));
}

QWidget* BuildPage(int page) {
  const PageLayout& layout = kPages[page];
  auto* frame = new QWidget;
  frame->setObjectName(QString("fraStep(%1)").arg(page));
  auto* row = new QHBoxLayout(frame);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(new PictureStrip(page));
  auto* content = new QVBoxLayout;
  content->setContentsMargins(12, 8, 8, 0);
  content->addWidget(Heading(layout.heading));
  if (layout.explanation != nullptr) content->addWidget(Text(layout.explanation));
  content->addSpacing(10);
  layout.build(*content);
  if (!Stretches(page)) content->addStretch();
  row->addLayout(content, 1);
  return frame;
}

}  // namespace wizard
