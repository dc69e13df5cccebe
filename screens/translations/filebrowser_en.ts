<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Browser</name>
    <message numerus="yes">
        <source>Delete these %Ln entry(s)?</source>
        <translation>
            <numerusform>Delete this %Ln entry?</numerusform>
            <numerusform>Delete these %Ln entries?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) were not tried and stay marked.</source>
        <translation>
            <numerusform>%Ln file was not tried and stays marked.</numerusform>
            <numerusform>%Ln files were not tried and stay marked.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln entry(s) deleted</source>
        <translation>
            <numerusform>%1 of %Ln entry deleted</numerusform>
            <numerusform>%1 of %Ln entries deleted</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) copied to %1</source>
        <translation>
            <numerusform>%Ln file copied to %1</numerusform>
            <numerusform>%Ln files copied to %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln file(s) copied to %2</source>
        <translation>
            <numerusform>%1 of %Ln file copied to %2</numerusform>
            <numerusform>%1 of %Ln files copied to %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ListScreen</name>
    <message numerus="yes">
        <source>%Ln file(s) selected, %1</source>
        <translation>
            <numerusform>%Ln file selected, %1</numerusform>
            <numerusform>%Ln files selected, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln folder(s) selected</source>
        <translation>
            <numerusform>%Ln folder selected</numerusform>
            <numerusform>%Ln folders selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Progress</name>
    <message numerus="yes">
        <source>%1 of %Ln file(s), %2</source>
        <translation>
            <numerusform>%1 of %Ln file, %2</numerusform>
            <numerusform>%1 of %Ln files, %2</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>words</name>
    <message numerus="yes">
        <source>%Ln byte(s)</source>
        <translation>
            <numerusform>%Ln byte</numerusform>
            <numerusform>%Ln bytes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln second(s) left</source>
        <translation>
            <numerusform>About %Ln second left</numerusform>
            <numerusform>About %Ln seconds left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minute(s) left</source>
        <translation>
            <numerusform>About %Ln minute left</numerusform>
            <numerusform>About %Ln minutes left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hour(s) left</source>
        <translation>
            <numerusform>About %Ln hour left</numerusform>
            <numerusform>About %Ln hours left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s)</source>
        <translation>
            <numerusform>%Ln file</numerusform>
            <numerusform>%Ln files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln folder(s)</source>
        <translation>
            <numerusform>%Ln folder</numerusform>
            <numerusform>%Ln folders</numerusform>
        </translation>
    </message>
</context>
</TS>
