#pragma once

#include <QWidget>
#include <memory>

#include "data/fileform.h"
#include "schema/filesets.h"

class QPushButton;

namespace welmo {

namespace Ui {
class WeaveEditor;
}

/// The editor of one weave file, with its rules. The weave page and the weave instructions hold the
/// same editor; what differs is said by Home.
class WeaveEditor : public QWidget
{
    Q_OBJECT
public:
    struct Home
    {
        /// The two homes differ in what a new file starts with.
        const schema::WeaveSet &set = schema::weave();
        bool titlesAndPictures = true;
    };

    explicit WeaveEditor(QWidget *parent = nullptr);
    ~WeaveEditor() override;

    /// Builds the controls and shows the first file. @p owner is named as the sender of reports.
    void initUI(QObject *owner, const Home &home);

    FileForm &file() { return *m_file; }
    void initParamDefault() { m_file->writeDefaults(); }
    void useWeaveDefaultNode() { m_file->useDefaultNode(); }
    void initParamValue() { m_file->start(); }
    void getWeaveParam() { m_file->get(); }
    void setWeaveParam() { m_file->show(); }
    void storeWeaveParam() { m_file->store(); }
    int saveWeaveParam() { return m_file->save(); }
    /// True when the form may be saved; otherwise the reason has been reported.
    bool validateParam();

public slots:
    void onFileNumberChanged(int index);
    void onStandardTypeChanged(int index);
    void onPatternChanged(int index);
    void onElevationTypeChanged(int index);
    void onStayTypeChanged(int index);
    /// The unit of the stays, which follows reference and stay type.
    void switchStayTime();
    void onCancelButtonClicked();
    void onSaveButtonClicked();

signals:
    /// The file was saved, after the message.
    void saved();
    /// The edits were dropped.
    void cancelled();

private:
    void bindFields(FieldTable &fields, const schema::WeaveSet &set);
    void initControl(const Home &home);
    void initConnect();
    void forgetOtherAngles();
    void applyRules();
    void hideTitlesAndPictures();

    std::unique_ptr<Ui::WeaveEditor> ui;
    std::unique_ptr<FileForm> m_file;
    QObject *m_owner = nullptr;
    double m_leftElevation = 0; ///< what the boxes held before "V-Pattern" set them to 0
    double m_rightElevation = 0;
    bool m_vPattern = true;
    QString m_anglesOf; ///< the file whose angles are remembered
    int m_standard = -1; ///< that the length or frequency box is set up for
};

} // namespace welmo
