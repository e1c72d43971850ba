Class Guarded
Public what
Private Sub Class_Terminate
If what = 1 Then kept = 5
If what = 2 Then Erase kept
If what = 3 Then ReDim kept(1)
End Sub
End Class

Dim kept, spare, sum

Sub Main()
' A procedure that is too long to be compiled stays interpreted, however often it is called.
source = "Function long(n)" & vbCrLf & "long = n" & vbCrLf
For i = 1 To 500 : source = source & "If n > " & i & " Then long = long + n Mod " & (i + 1) & vbCrLf : Next
ExecuteGlobal source & "End Function"
sum = 0
For i = 1 To 4000 : sum = sum + CLng(Eval("long(3)")) : Next
ExecuteGlobal "Function often(n) : often = 0 : For i = 1 To n : often = often + long(i Mod 3) : Next : End Function"
PrintString sum & " " & often(4000)      '> 16000 4000

' A procedure that is replaced by another one.
ExecuteGlobal "Function one(n) : one = n : End Function"
ExecuteGlobal "Function ones(n) : Dim i : ones = 0 : For i = 1 To n : ones = ones + one(i) : Next : End Function"
before = ones(9) & " " & ones(9)
ExecuteGlobal "Function one(n) : one = 2 * n : End Function"
PrintString before & " " & ones(9)       '> 45 45 90

' What an instruction releases may change the array that it works on.
For what = 1 To 3
ReDim kept(9)
For i = 0 To 9 : kept(i) = i : Next
PrintString what & ": " & released(kept, what)
Next
'> 1: 15 error 13
'> 2: 15 error 9
'> 3: 15 error 9

' Bounds of arrays are worked out anew in each pass.
For i = 0 To 40
ReDim list(i) : ReDim Preserve list(i * 2)
sum = sum + UBound(list)
Next
PrintString sum                          '> 17640

numbers
changes
elements
parts
calls
End Sub

' Only what is declared is sure to be in a register, as this module runs source.
Sub numbers
Dim list, i, n, q, x
' Whole division rounds towards zero; a real that becomes too big is an error.
For i = -7 To 7 Step 7
list = list & (i \ 3) & " " & (i Mod 3) & " " & (i \ 2) & " " & (i Mod 10) & ";"
Next
n = 2147483645
For i = 1 To 4
list = list & " " & (n \ 7)
n = -n
Next
PrintString list                         '> -2 -1 -3 -7;0 0 0 0;2 1 3 7; 306783377 -306783377 306783377 -306783377
list = ""
For i = -32766 To -32768 Step -1 : list = list & " " & TypeName(-i) & (-i) : Next
For i = 2 To 0.5 Step -0.5 : list = list & " " & i : Next
PrintString list                         '>  Integer32766 Integer32767 Long32768 2 1.5 1 0.5
list = ""
On Error Resume Next
n = -2147483647
For i = 2 To -1 Step -1
q = 0 : q = (n - 1) \ i : list = list & q & " " & Err.Number & ";" : Err.Clear
q = 0 : q = (n - 1) Mod i : list = list & q & " " & Err.Number & ";" : Err.Clear
Next
PrintString list                         '> -1073741824 0;0 0;-2147483648 0;0 0;0 11;0 11;0 6;0 0;
list = "" : x = "ab"
For i = 3 To -1 Step -1 : list = list & Mid(x, i, 1) & Err.Number & ";" : Err.Clear : Next
PrintString list                         '> 0;b0;a0;
n = 0 : list = "" : x = ""
For i = 1 To 5000
If i Mod 100 = 0 Then x = list
list = list & "x"
n = n + Len(x)
Next
PrintString Len(list) & " " & n          '> 5000 12250099
x = 1E300
For i = 1 To 5 : x = x * 1E5 : Next
PrintString (x < 2E305) & Err.Number     '> True6
End Sub

' Two names of one array; what it held before is still held.
Sub changes
Dim what, i
On Error Resume Next
For what = 1 To 2
ReDim kept(9)
For i = 0 To 9 : kept(i) = i : Next
sum = 0
change kept, kept, what
PrintString sum & " error " & Err.Number
Next
'> 28 error 9
'> 21 error 9
End Sub
Sub change(list, same(), what)
Dim i, held
held = list
For i = 1 To 9
sum = sum + list(i)
If i = 7 And what = 1 Then Erase same
If i = 6 And what = 2 Then ReDim same(1)
Next
End Sub

' Beyond the end of one dimension, with another number of dimensions, and an object that is none.
Sub elements
Dim cube(3, 3, 3), plane(3, 3), e, i, j, total
For i = 0 To 3 : For j = 0 To 3 : plane(i, j) = 1 : cube(i, j, 0) = 1 : cube(i, j, 1) = 1 : Next : Next
total = 0 : e = plane
On Error Resume Next
For i = 0 To 9 : total = total + cube(0, i, 0) : Next
For i = 0 To 9
total = total + e(1, 1) * 100
If i = 6 Then e = cube
Next
For i = 0 To 9
total = total + plane(1, 1) * 10000
Set plane(1, 1) = i
Next
PrintString total                        '> 100704
End Sub

' Whole parts below zero and beyond Long; texts of other lengths than one.
Sub parts
Dim i, big, cut, down, held, s, size, t
s = "abcdefghijklm"
For i = 1 To 9
down = down + Int(i * -0.3)
cut = cut + Fix(i * -0.3)
big = big + Int(i * 400000000.5)
held = t
t = t & Mid(s, i, 1 + i Mod 2)
Next
For i = -32766 To -32768 Step -1 : size = size & Abs(i) & TypeName(Abs(i)) & " " : Next
For i = -2147483647 To -2147483648 Step -1 : size = size & Abs(i) & TypeName(Abs(i)) & " " : Next
PrintString down & " " & cut & " " & big                 '> -18 -9 18000000020
PrintString size    '> 32766Integer 32767Integer 32768Long 2147483647Long 2147483648Double 
PrintString held & " " & t               '> abbcddeffghh abbcddeffghhij
End Sub

' A called procedure changes an array, and a variable's type.
Sub calls
Dim i, x, total
ReDim kept(1)
kept(1) = 1 : x = 1
For i = 1 To 9
total = total + kept(1) + x
swell x, i
total = total + kept(1) + x
Next
PrintString total                        '> 130.5
ReDim kept(1)
kept(1) = 1
PrintString again(kept)                  '> 99
total = ""
For i = 1 To 3
kept = 0
Set spare = New Guarded
spare.what = 1
hold
total = total & kept
Next
PrintString total                        '> 555
PrintString skipped                      '> 6 error 501
End Sub
' An object goes when the procedure returns whose variable holds it.
Sub hold
Dim held
Set held = spare
Set spare = Nothing
End Sub
' What counts the passes is still needed where an error leads to the next statement.
Function skipped
Dim i, j
On Error Resume Next
For i = 1 To 3
For j = 1 To i
skipped = skipped + 1
hold = 1
Next
Next
skipped = skipped & " error " & Err.Number
End Function
' Its parameter is the array that the called procedure changes.
Function again(list)
Dim i
For i = 1 To 9
again = again + list(1)
grow i
again = again + list(1)
Next
End Function
Sub swell(x, n)
grow n
If n = 5 Then x = 2.5
End Sub
Sub grow(n)
If n = 5 Then
ReDim kept(3)
kept(1) = 10
End If
End Sub

' The array is a parameter; the object goes when its variable gets a number.
Function released(list, what)
Dim i, sum, held
On Error Resume Next
For i = 0 To 9
sum = sum + list(i)
If Err.Number <> 0 Then
released = sum & " error " & Err.Number
Exit Function
End If
If i = 4 Then
Set held = New Guarded
held.what = what
End If
If i = 5 Then held = list(5)
Next
released = sum
End Function
