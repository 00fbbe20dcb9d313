<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>ContentView</name>
    <message>
        <source>Unknown error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Waiting for a Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose it in the folder panel. If you cannot see the panel, cancel and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CurrentName</name>
    <message>
        <source>Current: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>No MPC Projects Found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make sure you selected the folder that
directly contains your .xpj files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Different Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FieldMenu</name>
    <message>
        <source>Cut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FolderPanel</name>
    <message>
        <source>Select the folder containing your MPC projects</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FolderPickerView</name>
    <message>
        <source>Select Your MPC Projects Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the folder that contains your .xpj files
and their _[ProjectData] folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Everything runs locally. No files are uploaded anywhere.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HeaderView</name>
    <message>
        <source>Rescan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%lld</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LogView</name>
    <message>
        <source>ACTIVITY LOG</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No activity yet</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NewName</name>
    <message>
        <source>NEW NAME</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enter new project name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New name</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProjectList</name>
    <message>
        <source>Projects</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProjectRow</name>
    <message>
        <source>No data folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Renamed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%lld files</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RenameForm</name>
    <message>
        <source>Rename Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RenamePreview</name>
    <message>
        <source>PREVIEW</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>+ Updates file paths inside .xpj</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ScanIndicator</name>
    <message>
        <source>Scanning...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SearchBar</name>
    <message>
        <source>Search projects...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Speech</name>
    <message>
        <source>Not available now</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SplitHandle</name>
    <message>
        <source>Width of the log</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ToolkitPanel</name>
    <message>
        <source>There is no folder of that name.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
