Function said(text)
PrintString text : said = True
End Function
Sub Main()
If 1 = 2 Then PrintString "no" Else PrintString "else"     '> else
If 1 = 1 Then PrintString "a" : PrintString "b"            '> a
'> b
If False Then
PrintString "no"
ElseIf 2 > 1 Then
PrintString "elseif"                                       '> elseif
Else
PrintString "no"
End If
If Null Then PrintString "no" Else PrintString "Null is not True" '> Null is not True
If Not Null Then PrintString "no"
If Not (1 = 2) Then PrintString "not"                      '> not
If Not Not 5 > 3 Then PrintString "not not"                '> not not
' And and Or evaluate both sides.
If 1 = 2 And said("and") = True Then PrintString "no"      '> and
If 1 = 1 Or said("or") = True Then PrintString "or done"   '> or
'> or done
While 1 = 2 And said("in loop") = True                     '> in loop
Wend
If 1 = 1 And 2 = 2 And 3 = 4 Then PrintString "no"
If 1 = 2 Or 2 = 3 Or 3 = 3 Then PrintString "third"        '> third
If 1 = 2 Or Null = 1 Then PrintString "no"
If 1 And 2 Then PrintString "no" Else PrintString "bits"   '> bits
x = "5"
If x = 5 Then PrintString "text beside a number"           '> text beside a number
Select Case x
Case 1, 2
PrintString "no"
Case 5
PrintString "five"                                         '> five
Case Else
PrintString "no"
End Select
Select Case "b"
Case "a": PrintString "no"
Case Else: PrintString "else"                              '> else
End Select
Select Case 3
Case 1
End Select
If True Then
End If
If 3 < = 3 Then PrintString "blanks in signs"              '> blanks in signs
If 3 => 3 And 3 =< 3 And 2 >< 3 Then PrintString "old signs" '> old signs
If True Then If False Then PrintString "no" Else PrintString "inner else" '> inner else
If 1 = 2 And 1 / 0 = 1 Then PrintString "no"
'> error 11 line 51
End Sub
