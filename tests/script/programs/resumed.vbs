' After an error that is survived, the next statement of the text is the one that goes on.
Sub Main
On Error Resume Next
If True Then
  x = 1 / 0
Else
  PrintString "never"
End If
If False Then
  x = 1
ElseIf 1 / 0 Then
  PrintString "in ElseIf"                     '> in ElseIf
Else
  PrintString "never"
End If
Select Case 1
  Case 1
    x = 1 / 0
  Case Else
    PrintString "never"
End Select
Do While n < 2
  n = n + 1
  y = 1 / 0
Loop
PrintString n                                 '> 2
Do Until n = 4
  n = n + 1
  y = 1 / 0
Loop
PrintString n                                 '> 4
Do While 1 / 0
  PrintString "in Do"                         '> in Do
  Exit Do
Loop
With New Watched
  .x = 1 / 0
End With
PrintString "after With"                      '> gone
'> after With
PrintString Early & Err.Number                '> early0
Err.Raise 5, "s", "d", "help.txt", 7
PrintString Err.HelpFile & Err.HelpContext    '> help.txt7
x = 1 / 0
PrintString Err.HelpFile & Err.HelpContext    '> 0
parts(1) = "x"
ReDim parts(2), grid(1, 1)
For i = 1 To 3
  parts(2) = parts(2) & i & "-"
  grid(1, 0) = grid(1, 0) & parts(2)
  parts(5) = parts(5) & "y"
Next
PrintString parts(2) & Err.Number             '> 1-2-3-9
PrintString grid(1, 0)                        '> 1-1-2-1-2-3-
Set parts(0) = New Watched
parts(0) = parts(0) & "!"
PrintString parts(0)                          '> 1!
copy = parts
copy(2) = copy(2) & "z"
PrintString parts(2) & copy(2)                '> 1-2-3-1-2-3-z
Set w = New Watched
w.Add 3
PrintString w.text                            '> aaa
End Sub

Function Early
  On Error Resume Next
  Early = "early"
  x = 1 / 0
  If Err.Number = 11 Then Exit Function
  PrintString "never"
End Function

Class Watched
  Public x, text
  Public Default Property Get value
    value = 1
  End Property
  Sub Add(n)
    For k = 1 To n
      text = text & "a"
    Next
  End Sub
  Sub Class_Terminate
    If IsEmpty(text) And Not said Then PrintString "gone"
    said = True
  End Sub
End Class
Dim said
