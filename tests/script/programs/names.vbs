OPTION EXPLICIT
' Names: letter case, brackets, hiding, members of the host.
Const PI = 3.5, NEG = -2
Dim [a name], Mixed
Sub Main()
[a name] = "bracketed" : PrintString [A NAME] '> bracketed
mIXED = 1 : PrintString MIXED + 1        '> 2
PrintString PI + NEG                     '> 1.5
PrintString DISPLAYWIDTH                 '> 640
parentform.printstring parentform.DisplayWidth / 2 '> 320
Colour = "red" : PrintString Colour & ParentForm.Colour '> redred
ParentForm.Colour = "blue" : PrintString ParentForm.Colour '> blue
hide                                     '> ownown too
Dim l_ong : l_ong = _
 1 + _
 2
PrintString l_ong                        '> 3
Rem a remark
PrintString "quoted ""text""" ' comment  '> quoted "text"
PrintString Note(1, , "x")               '> 3
PrintString Len("byte") & vbTab & Mid("abc", 2, 1) '> 4	b
On Error Resume Next
undeclared = 5 : PrintString Err.Number : Err.Clear '> 500
undeclared : PrintString Err.Number : Err.Clear '> 500
PI = 3 : PrintString Err.Number : Err.Clear '> 501
Main = 3 : PrintString Err.Number        '> 501
End Sub
Sub hide
Dim displayWidth, len
displayWidth = "own" : len = "own too" : PrintString displayWidth & len
End Sub
